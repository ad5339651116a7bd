// A value as the columns "type" and "value" of a row of settings; docs/shared-suite.md has the
// table. Every value is kept exactly, but that all NaNs are one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "hosts/settings/SettingValue.h"

namespace wayfell {

/// A value of SQLite's.
using Column = std::variant<std::nullptr_t, std::int64_t, double, std::string, PropertyValue::Data>;

struct StoredValue {
  std::string_view type;  ///< see typeName
  Column value;

  /// Whether both are the same value: 0.0 and -0.0 are two, all NaNs are one.
  friend bool operator==(const StoredValue& a, const StoredValue& b);
};

/// Throws BadValue for what nests deeper than kDeepestSetting lists and dictionaries.
StoredValue encode(const PropertyValue& value);
/// Throws BadValue for that too, and for a type that is none, a value that does not fit its type,
/// and JSON that is none or has a null in it.
PropertyValue decode(std::string_view type, Column value);

/// A text may be a column of its own, or must be written as bytes: those with a NUL in them and
/// those that are not UTF-8, which some readers of SQLite cut or refuse.
bool isPlainText(std::string_view text);

}  // namespace wayfell
