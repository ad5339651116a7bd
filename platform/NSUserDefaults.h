// A key-value store of settings, read by type. See PropertyValue for what each typed read gives.
// A missing key reads as 0, 0.0, false or none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Host.h"

namespace wayfell {

/// Typed reads over any store; an absent store holds nothing.
class TypedStore {
 public:
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

 protected:
  explicit TypedStore(KeyValueStore* store) : store_(store) {}
  KeyValueStore* store_;
};

class NSUserDefaults : public TypedStore {
 public:
  /// The process's own settings; none when the host has no store for them.
  static std::optional<NSUserDefaults> standardUserDefaults();

  /// Settings shared by several programs under a name. Without such a store every read gives its
  /// zero value and writes are lost.
  explicit NSUserDefaults(std::string_view suiteName);

  void setObjectForKey(std::optional<PropertyValue> object, std::string_view key);
  void setIntegerForKey(std::int64_t integer, std::string_view key);
  void setBoolForKey(bool boolean, std::string_view key);

 private:
  explicit NSUserDefaults(KeyValueStore* store) : TypedStore(store) {}
};

/// The user's settings in the cloud, which this system only reads.
class NSUbiquitousKeyValueStore : public TypedStore {
 public:
  /// None when the host has no such store.
  static std::optional<NSUbiquitousKeyValueStore> defaultStore();

 private:
  explicit NSUbiquitousKeyValueStore(KeyValueStore* store) : TypedStore(store) {}
};

}  // namespace wayfell
