#include "platform/NSUserDefaults.h"

#include <utility>

namespace wayfell {

std::optional<PropertyValue> TypedStore::objectForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? std::optional(*value) : std::nullopt;
}

std::int64_t TypedStore::integerForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->integerValue() : 0;
}

double TypedStore::doubleForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->doubleValue() : 0;
}

bool TypedStore::boolForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->boolValue() : false;
}

std::optional<std::string> TypedStore::stringForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->stringValue() : std::nullopt;
}

std::optional<NSUserDefaults> NSUserDefaults::standardUserDefaults() {
  KeyValueStore* store = Host::current().standardDefaults();
  return store ? std::optional(NSUserDefaults(store)) : std::nullopt;
}

NSUserDefaults::NSUserDefaults(std::string_view suiteName)
    : TypedStore(Host::current().sharedDefaults(suiteName)) {}

void NSUserDefaults::setObjectForKey(std::optional<PropertyValue> object, std::string_view key) {
  if (store_) store_->set(key, std::move(object));
}

void NSUserDefaults::setIntegerForKey(std::int64_t integer, std::string_view key) {
  setObjectForKey(PropertyValue(integer), key);
}

void NSUserDefaults::setBoolForKey(bool boolean, std::string_view key) {
  setObjectForKey(PropertyValue(boolean), key);
}

std::optional<NSUbiquitousKeyValueStore> NSUbiquitousKeyValueStore::defaultStore() {
  KeyValueStore* store = Host::current().ubiquitousDefaults();
  return store ? std::optional(NSUbiquitousKeyValueStore(store)) : std::nullopt;
}

}  // namespace wayfell
