#include "hosts/settings/SettingValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <utility>

#include "hosts/settings/SettingJson.h"
#include "hosts/text/Base64.h"
#include "hosts/text/InputError.h"
#include "hosts/text/IsoTime.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

// In the order of PropertyValue::Storage.
constexpr std::array<std::string_view, 8> kTypeNames = {"integer", "boolean", "real", "text",
                                                        "date",    "data",    "list", "dictionary"};

std::string jsonOf(const PropertyValue& value) {
  JsonWriter json;
  writeExactJson(json, value);
  return json.text();
}

std::string textOfReal(double real) {
  return std::isfinite(real) ? jsonOf(real) : std::string(nameOfNonFinite(real));
}

template <class Number>
Number numberOf(std::string_view text, const char* what) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || last != end) throw BadValue(std::string("it is no ") + what);
  return number;
}

// from_chars also reads nan and inf, but "nan(...)" and "infinity" besides.
double realOf(std::string_view text) {
  if (const auto real = nonFiniteOf(text)) return *real;
  const auto real = numberOf<double>(text, "number");
  if (!std::isfinite(real)) throw BadValue("it is no number");
  return real;
}

bool booleanOf(std::string_view text) {
  if (const auto boolean = booleanOfWord(text)) return *boolean;
  if (text == "1" || text == "0") return text == "1";
  throw BadValue("it is neither true nor false");
}

NSDate dateOf(std::string_view text) {
  if (const auto date = dateOfIsoTime(text)) return *date;
  if (const auto date = dateOfIsoTime(std::string(text) + "T00:00:00")) return *date;
  try {
    return {realOf(text)};
  } catch (const BadValue&) {
    throw BadValue("it is no date in ISO 8601, nor seconds");
  }
}

PropertyValue::Data dataOf(std::string_view text) {
  auto data = dataOfBase64(text);
  if (!data) throw BadValue("it is not base64");
  return *std::move(data);
}

}  // namespace

std::string_view typeName(const PropertyValue& value) {
  return kTypeNames.at(value.storage().index());
}

void expectTypeName(std::string_view type) {
  if (std::find(kTypeNames.begin(), kTypeNames.end(), type) == kTypeNames.end()) {
    throw BadValue(inQuotes(type) + " is no type");
  }
}

std::string textOf(const PropertyValue& value) {
  const PropertyValue::Storage& stored = value.storage();
  if (const auto* const text = std::get_if<std::string>(&stored)) return *text;
  if (const auto* const data = std::get_if<PropertyValue::Data>(&stored)) return base64Of(*data);
  if (const auto* const real = std::get_if<double>(&stored)) return textOfReal(*real);
  if (const auto date = value.dateValue()) return textOfReal(date->timeIntervalSinceReferenceDate);
  return jsonOf(value);
}

PropertyValue valueOf(std::string_view type, std::string_view text) {
  expectTypeName(type);
  if (type == "integer") return numberOf<std::int64_t>(text, "integer");
  if (type == "boolean") return booleanOf(text);
  if (type == "real") return realOf(text);
  if (type == "date") return dateOf(text);
  if (type == "data") return dataOf(text);
  if (type == "text") return text;
  PropertyValue value = valueOfExactJson(text);
  if (typeName(value) != type) throw BadValue("its JSON is no " + std::string(type));
  return value;
}

std::optional<bool> booleanOfWord(std::string_view text) {
  const std::string word = upperCased(text);
  if (word == "TRUE" || word == "YES" || word == "ON") return true;
  if (word == "FALSE" || word == "NO" || word == "OFF") return false;
  return std::nullopt;
}

PropertyValue valueOfUntyped(std::string_view text) {
  // Blanks, which JSON allows around a value, make it a text.
  if (text.empty() || text.front() <= ' ' || text.back() <= ' ') return text;
  JsonLine line;
  try {
    line.parse(text);
  } catch (const InputError&) {
    return text;
  }
  const JsonLine::Value value = line.root();
  const bool typed = value.isNumber() || value.kind() == JsonLine::Kind::boolean;
  return typed ? expectSettingValue(value, FieldPath("")) : PropertyValue(text);
}

std::string_view nameOfNonFinite(double real) {
  if (std::isnan(real)) return "nan";
  return real > 0 ? "inf" : "-inf";
}

std::optional<double> nonFiniteOf(std::string_view name) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double real : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity}) {
    if (name == nameOfNonFinite(real)) return real;
  }
  return std::nullopt;
}

}  // namespace wayfell
