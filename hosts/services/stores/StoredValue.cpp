#include "hosts/services/stores/StoredValue.h"

#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using Data = PropertyValue::Data;

Column columnOfReal(double real) {
  // SQLite has no NaN: it keeps one as null.
  if (std::isnan(real)) return nullptr;
  return real;
}

struct ToColumn {
  Column operator()(std::int64_t integer) const { return integer; }
  Column operator()(bool boolean) const { return std::int64_t{boolean ? 1 : 0}; }
  Column operator()(double real) const { return columnOfReal(real); }
  Column operator()(const std::string& text) const {
    if (isPlainText(text)) return text;
    return Data(text.begin(), text.end());
  }
  Column operator()(NSDate date) const { return columnOfReal(date.timeIntervalSinceReferenceDate); }
  Column operator()(const Data& data) const { return data; }
  template <class ListOrDictionary>
  Column operator()(const ListOrDictionary& structure) const {
    return textOf(structure);
  }
};

std::optional<double> realOf(const Column& column) {
  if (std::holds_alternative<std::nullptr_t>(column)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (const auto* real = std::get_if<double>(&column)) return *real;
  if (const auto* integer = std::get_if<std::int64_t>(&column)) {
    return static_cast<double>(*integer);
  }
  return std::nullopt;
}

std::optional<PropertyValue> valueOfText(Column column) {
  if (auto* text = std::get_if<std::string>(&column)) return std::move(*text);
  if (const auto* bytes = std::get_if<Data>(&column)) {
    return std::string(bytes->begin(), bytes->end());
  }
  return std::nullopt;
}

// None when the column does not fit the type.
std::optional<PropertyValue> fitting(std::string_view type, Column column) {
  const auto* const integer = std::get_if<std::int64_t>(&column);
  if (type == "integer" && integer != nullptr) return *integer;
  if (type == "boolean" && integer != nullptr && (*integer == 0 || *integer == 1)) {
    return *integer == 1;
  }
  if (type == "real") return realOf(column);
  if (type == "text") return valueOfText(std::move(column));
  if (type == "date") {
    if (const auto seconds = realOf(column)) return NSDate{*seconds};
  }
  if (type == "data") {
    if (auto* bytes = std::get_if<Data>(&column)) return std::move(*bytes);
  }
  if (type == "list" || type == "dictionary") {
    if (const auto* text = std::get_if<std::string>(&column)) return valueOf(type, *text);
  }
  return std::nullopt;
}

}  // namespace

bool operator==(const StoredValue& a, const StoredValue& b) {
  const auto* const realA = std::get_if<double>(&a.value);
  const auto* const realB = std::get_if<double>(&b.value);
  const bool sameValue =
      realA != nullptr && realB != nullptr
          ? std::bit_cast<std::uint64_t>(*realA) == std::bit_cast<std::uint64_t>(*realB)
          : a.value == b.value;
  return a.type == b.type && sameValue;
}

bool isPlainText(std::string_view text) {
  return text.find('\0') == std::string_view::npos && isUtf8(text);
}

StoredValue encode(const PropertyValue& value) {
  return {typeName(value), std::visit(ToColumn(), value.storage())};
}

PropertyValue decode(std::string_view type, Column value) {
  expectTypeName(type);
  auto decoded = fitting(type, std::move(value));
  if (!decoded) throw BadValue("its value is no " + std::string(type));
  return *std::move(decoded);
}

}  // namespace wayfell
