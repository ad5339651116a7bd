// The value of a setting as JSON, and back.
//
// It is written in two forms. The exact one keeps every value, but that all NaNs are one: stores
// have it, and docs/shared-suite.md describes it. The plain one is for readers who know what to
// expect: what JSON does not have is a number or a text there.
#pragma once

#include <string>
#include <string_view>

#include "hosts/settings/SettingValue.h"
#include "hosts/text/JsonFields.h"
#include "hosts/text/JsonWriter.h"

namespace wayfell {

/// Lists and dictionaries of stored values may stand within one another this many times.
inline constexpr int kDeepestSetting = 200;

// Both throw BadValue for what nests deeper than kDeepestSetting.

/// A date is {"$date": seconds}, data {"$data": base64}, and so on.
void writeExactJson(JsonWriter& writer, const PropertyValue& value);
/// A date is its seconds since 2001-01-01T00:00:00Z, data are base64, and numbers that are not
/// finite are "nan", "inf" and "-inf".
void writePlainJson(JsonWriter& writer, const PropertyValue& value);

/// Reads the exact form. Throws BadValue for what is not JSON, has a null in it, or nests deeper
/// than kDeepestSetting.
PropertyValue valueOfExactJson(std::string_view text);
/// Reads what people write in recordings: booleans, numbers, texts, lists and objects as they are.
/// Throws InputError for a null, and for a member that is given twice.
PropertyValue expectSettingValue(JsonLine::Value value, const FieldPath& path);

}  // namespace wayfell
