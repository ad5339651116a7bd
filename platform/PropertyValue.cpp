#include "platform/PropertyValue.h"

#include "platform/NSString.h"
#include "platform/Numbers.h"

namespace wayfell {

std::int64_t PropertyValue::integerValue() const {
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) return *integer;
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean ? 1 : 0;
  if (const auto* real = std::get_if<double>(&storage_)) return truncatedToInt64(*real);
  if (const auto* text = std::get_if<std::string>(&storage_)) return wayfell::integerValue(*text);
  return 0;
}

double PropertyValue::doubleValue() const {
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) {
    return static_cast<double>(*integer);
  }
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean ? 1 : 0;
  if (const auto* real = std::get_if<double>(&storage_)) return *real;
  if (const auto* text = std::get_if<std::string>(&storage_)) return wayfell::doubleValue(*text);
  return 0;
}

bool PropertyValue::boolValue() const {
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) return *integer != 0;
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean;
  if (const auto* real = std::get_if<double>(&storage_)) return *real != 0;
  if (const auto* text = std::get_if<std::string>(&storage_)) return wayfell::boolValue(*text);
  return false;
}

std::optional<std::string> PropertyValue::stringValue() const {
  if (const auto* integer = std::get_if<std::int64_t>(&storage_)) return std::to_string(*integer);
  if (const auto* boolean = std::get_if<bool>(&storage_)) return *boolean ? "1" : "0";
  if (const auto* real = std::get_if<double>(&storage_)) return shortestText(*real);
  if (const auto* text = std::get_if<std::string>(&storage_)) return *text;
  return std::nullopt;
}

std::optional<NSDate> PropertyValue::dateValue() const {
  if (const auto* date = std::get_if<NSDate>(&storage_)) return *date;
  return std::nullopt;
}

}  // namespace wayfell
