// The value of a setting as people and scripts write it: a text and the name of its type.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace wayfell {

/// What is written down is no value. what() says why, without a full stop, and names neither key
/// nor file.
class BadValue : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

/// "integer", "boolean", "real", "text", "date", "data", "list" or "dictionary".
std::string_view typeName(const PropertyValue& value);
/// Throws BadValue for what is none of these names.
void expectTypeName(std::string_view type);

/// The value as a text to be read back with its type: 12, true or false, 1.5 or nan or inf, a text
/// as it is, a date in seconds since 2001-01-01T00:00:00Z, data in base64, lists and dictionaries
/// in the exact form of JSON (SettingJson.h).
std::string textOf(const PropertyValue& value);
/// The other way round. A boolean may also be 0 or 1, or another word for it, and a date be in ISO
/// 8601: "2026-05-01", "2026-05-01T12:30:00+02:00", in UTC unless it says otherwise. Throws
/// BadValue.
PropertyValue valueOf(std::string_view type, std::string_view text);
/// True for "true", "yes" and "on", false for "false", "no" and "off", in either case; none for
/// other texts.
std::optional<bool> booleanOfWord(std::string_view text);
/// The value of a text whose type is not told: a JSON number, true or false keeps its type, all
/// else is text. It is UTF-8.
PropertyValue valueOfUntyped(std::string_view text);

/// "nan", "inf" or "-inf", and back; none for other texts.
std::string_view nameOfNonFinite(double real);
std::optional<double> nonFiniteOf(std::string_view name);

}  // namespace wayfell
