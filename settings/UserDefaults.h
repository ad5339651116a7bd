// The one typed gateway to the widget's own settings, and the rule by which a key that changed in
// the user's cloud store is copied down into them.
//
// A missing store, the local or the cloud one, reads as false, 0 or none, and writes to it are
// lost; nothing is reported. When values are written out is left to the store.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace wayfell {

class UserDefaults {
 public:
  /// The stored value as a boolean, of whichever type it is.
  static bool checkDefaults(std::string_view key);
  /// Stored as the integer 0 or 1, never as a boolean: readers use boolForKey: or integerForKey:,
  /// and both work.
  static void setBoolForString(bool boolean, std::string_view key);

  /// The low 32 bits of the stored integer.
  static std::int32_t checkIntDefaults(std::string_view key);
  static void setIntForString(std::int64_t integer, std::string_view key);

  /// The stored value as it is.
  static std::optional<PropertyValue> checkObjectDefaults(std::string_view key);
  /// The cloud's value where there is one, else the local value.
  static std::optional<PropertyValue> checkObjectDefaultsWithiCloud(std::string_view key);
  /// None removes the key.
  static void setObjectForKey(std::optional<PropertyValue> object, std::string_view key);

  /// The stored value as a text; a number is its digits.
  static std::optional<std::string> checkStringDefaults(std::string_view key);
  static void setStringForKey(std::optional<std::string> string, std::string_view key);

  /// Copies one key down from the cloud store. How it is typed depends on the key: a number
  /// becomes an integer, truncated toward zero; an object is copied as it is (a missing one
  /// removes the local key); a boolean stays a boolean. A cloud value that is no number reads as 0
  /// and false. Keys of no set are left alone.
  static void syncronizeKey(std::string_view key);
};

}  // namespace wayfell
