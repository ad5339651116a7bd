// How a value is written down: as the columns "type" and "value" of a row of settings, and as text
// for people and scripts. docs/shared-suite.md has the tables; both forms keep every value exactly,
// but that all NaNs are one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "hosts/settings/SettingValue.h"
#include "platform/PropertyValue.h"

namespace wayfell {

/// What a row or a text says is no value. what() says why, without a full stop, and names neither
/// key nor file.
class BadValue : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

/// A value of SQLite's.
using Column = std::variant<std::nullptr_t, std::int64_t, double, std::string, PropertyValue::Data>;

struct StoredValue {
  std::string_view type;  ///< see typeName
  Column value;

  /// Of the same value: 0.0 and -0.0 are two, all NaNs are one.
  friend bool operator==(const StoredValue& a, const StoredValue& b);
};

/// Throws BadValue for what nests deeper than 200 lists and dictionaries.
StoredValue encode(const PropertyValue& value);
/// Throws BadValue for that too, and for a type that is none, a value that does not fit its type,
/// and JSON that is none or has a null in it.
PropertyValue decode(std::string_view type, Column value);

/// A text may be a column of its own, or must be written as bytes: those with a NUL in them and
/// those that are not UTF-8, which some readers of SQLite cut or refuse.
bool isPlainText(std::string_view text);

/// The value for people and scripts, to be read back with its type: 12, true or false, 1.5 or nan
/// or inf, a text as it is, a date in seconds since 2001-01-01T00:00:00Z, data in base64, lists and
/// dictionaries as the JSON they are kept in.
std::string textOf(const PropertyValue& value);
/// The other way round; a boolean may also be 0 or 1. Throws BadValue.
PropertyValue valueOf(std::string_view type, std::string_view text);

}  // namespace wayfell
