#include "platform/NSUserDefaults.h"

#include <utility>
#include <variant>

namespace wayfell {
namespace {

std::optional<PropertyValue> copyOf(const PropertyValue* value) {
  return value ? std::optional(*value) : std::nullopt;
}

}  // namespace

std::optional<PropertyValue> NSUserDefaults::objectForKey(std::string_view key) const {
  return copyOf(find(key));
}

std::int64_t NSUserDefaults::integerForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->integerValue() : 0;
}

double NSUserDefaults::doubleForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->doubleValue() : 0;
}

bool NSUserDefaults::boolForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->boolValue() : false;
}

std::optional<std::string> NSUserDefaults::stringForKey(std::string_view key) const {
  const PropertyValue* value = find(key);
  return value ? value->stringValue() : std::nullopt;
}

std::optional<NSUserDefaults> NSUserDefaults::standardUserDefaults() {
  KeyValueStore* store = Host::current().standardDefaults();
  return store ? std::optional(NSUserDefaults(store)) : std::nullopt;
}

NSUserDefaults::NSUserDefaults(std::string_view suiteName)
    : store_(Host::current().sharedDefaults(suiteName)) {}

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
  return store ? std::optional(NSUbiquitousKeyValueStore(*store)) : std::nullopt;
}

// Null for a text. The types that are no numbers either read as zero by themselves.
const PropertyValue* NSUbiquitousKeyValueStore::findNumber(std::string_view key) const {
  const PropertyValue* value = store_->find(key);
  const bool isText = value != nullptr && std::holds_alternative<std::string>(value->storage());
  return isText ? nullptr : value;
}

std::optional<PropertyValue> NSUbiquitousKeyValueStore::objectForKey(std::string_view key) const {
  return copyOf(store_->find(key));
}

double NSUbiquitousKeyValueStore::doubleForKey(std::string_view key) const {
  const PropertyValue* number = findNumber(key);
  return number ? number->doubleValue() : 0;
}

bool NSUbiquitousKeyValueStore::boolForKey(std::string_view key) const {
  const PropertyValue* number = findNumber(key);
  return number ? number->boolValue() : false;
}

}  // namespace wayfell
