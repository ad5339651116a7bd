// Key-value stores of settings, read by type. A missing key reads as 0, 0.0, false or none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Host.h"

namespace wayfell {

/// Settings on this machine. PropertyValue tells what each typed read makes of each type; an absent
/// store holds nothing.
class NSUserDefaults {
 public:
  /// The process's own settings; none when the host has no store for them.
  static std::optional<NSUserDefaults> standardUserDefaults();

  /// Settings shared by several programs under a name. Without such a store every read gives its
  /// zero value and writes are lost.
  explicit NSUserDefaults(std::string_view suiteName);

  /// The value itself, for reading without a copy; null when it is missing. It stays valid until
  /// the next call on the store.
  const PropertyValue* find(std::string_view key) const {
    return store_ ? store_->find(key) : nullptr;
  }
  std::optional<PropertyValue> objectForKey(std::string_view key) const;
  std::int64_t integerForKey(std::string_view key) const;
  double doubleForKey(std::string_view key) const;
  bool boolForKey(std::string_view key) const;
  std::optional<std::string> stringForKey(std::string_view key) const;

  void setObjectForKey(std::optional<PropertyValue> object, std::string_view key);
  void setIntegerForKey(std::int64_t integer, std::string_view key);
  void setBoolForKey(bool boolean, std::string_view key);

 private:
  explicit NSUserDefaults(KeyValueStore* store) : store_(store) {}
  KeyValueStore* store_;
};

/// The user's settings in the cloud, which this system only reads. Integers, booleans and reals
/// read as one another, as PropertyValue tells; unlike on this machine a text is no number and no
/// boolean, whatever it says, and reads as 0.0 and false, as do dates, data, lists and
/// dictionaries.
class NSUbiquitousKeyValueStore {
 public:
  /// None when the host has no such store.
  static std::optional<NSUbiquitousKeyValueStore> defaultStore();

  std::optional<PropertyValue> objectForKey(std::string_view key) const;
  double doubleForKey(std::string_view key) const;
  bool boolForKey(std::string_view key) const;

 private:
  explicit NSUbiquitousKeyValueStore(KeyValueStore& store) : store_(&store) {}
  const PropertyValue* findNumber(std::string_view key) const;
  KeyValueStore* store_;
};

}  // namespace wayfell
