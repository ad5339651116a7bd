#include "hosts/services/stores/StoredValue.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "hosts/text/Base64.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;
using Json = nlohmann::json;

// In the order of PropertyValue::Storage.
constexpr std::array<std::string_view, 8> kTypeNames = {"integer", "boolean", "real", "text",
                                                        "date",    "data",    "list", "dictionary"};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kDeepest = 200;

// JSON has neither dates nor data, nor numbers that are not finite, nor texts of any bytes: these
// are objects of one member, which a dictionary's never is: one that looks like it is put into
// "$dictionary", as a list of pairs, and so is one whose keys are no texts.
constexpr const char* kRealTag = "$real";
constexpr const char* kTextTag = "$text";
constexpr const char* kDateTag = "$date";
constexpr const char* kDataTag = "$data";
constexpr const char* kDictionaryTag = "$dictionary";

Data bytesOf(std::string_view text) { return {text.begin(), text.end()}; }
std::string textOfBytes(const Data& bytes) { return {bytes.begin(), bytes.end()}; }

std::string_view nameOfNonFinite(double real) {
  if (std::isnan(real)) return "nan";
  return real > 0 ? "inf" : "-inf";
}

std::optional<double> nonFiniteOf(std::string_view name) {
  for (const double real : {kNaN, kInfinity, -kInfinity}) {
    if (name == nameOfNonFinite(real)) return real;
  }
  return std::nullopt;
}

Json tagged(const char* tag, Json value) { return Json::object_t{{tag, std::move(value)}}; }

// A visitor with an operator for each type of value.
struct ToJson {
  Json operator()(std::int64_t integer) const { return integer; }
  Json operator()(bool boolean) const { return boolean; }
  Json operator()(double real) const {
    if (std::isfinite(real)) return real;
    return tagged(kRealTag, nameOfNonFinite(real));
  }
  Json operator()(const std::string& text) const {
    if (isUtf8(text)) return text;
    return tagged(kTextTag, base64Of(bytesOf(text)));
  }
  Json operator()(NSDate date) const {
    return tagged(kDateTag, (*this)(date.timeIntervalSinceReferenceDate));
  }
  Json operator()(const Data& data) const { return tagged(kDataTag, base64Of(data)); }
  Json operator()(const List& list) const {
    Json::array_t elements;
    for (const PropertyValue& element : list) elements.push_back(of(element));
    return elements;
  }
  Json operator()(const Dictionary& dictionary) const {
    if (needsPairs(dictionary)) return tagged(kDictionaryTag, pairsOf(dictionary));
    Json::object_t members;
    for (const auto& [key, value] : dictionary) members.emplace(key, of(value));
    return members;
  }

  static Json of(const PropertyValue& value) { return std::visit(ToJson(), value.storage()); }

  static bool needsPairs(const Dictionary& dictionary) {
    if (dictionary.size() == 1 && dictionary.begin()->first.starts_with('$')) return true;
    for (const auto& [key, value] : dictionary) {
      if (!isUtf8(key)) return true;
    }
    return false;
  }
  Json pairsOf(const Dictionary& dictionary) const {
    Json::array_t pairs;
    for (const auto& [key, value] : dictionary) {
      pairs.push_back(Json::array({(*this)(key), of(value)}));
    }
    return pairs;
  }
};

PropertyValue fromJson(const Json& json, int depth);

double realOf(const Json& json) {
  if (json.is_number()) return json.get<double>();
  if (json.is_object() && json.size() == 1 && json.contains(kRealTag)) {
    const Json& name = json[kRealTag];
    const auto real =
        name.is_string() ? nonFiniteOf(name.get_ref<const std::string&>()) : std::nullopt;
    if (real) return *real;
  }
  throw BadValue("its JSON has " + json.dump(-1, ' ', true) + " for a number");
}

Data dataOf(const Json& json) {
  const auto data =
      json.is_string() ? dataOfBase64(json.get_ref<const std::string&>()) : std::nullopt;
  if (!data) throw BadValue("its JSON has data that is not base64");
  return *data;
}

Dictionary dictionaryOfPairs(const Json& pairs, int depth) {
  Dictionary dictionary;
  for (const Json& pair : pairs) {
    const bool isPair = pair.is_array() && pair.size() == 2;
    const PropertyValue key = isPair ? fromJson(pair[0], depth) : PropertyValue(0);
    const auto* const text = std::get_if<std::string>(&key.storage());
    if (text == nullptr) {
      throw BadValue("its JSON has a \"$dictionary\" that is no list of pairs of key and value");
    }
    dictionary.insert_or_assign(*text, fromJson(pair[1], depth + 1));
  }
  return dictionary;
}

PropertyValue taggedValue(const Json& object, int depth) {
  const auto& [tag, value] = *object.get_ref<const Json::object_t&>().begin();
  if (tag == kRealTag) return realOf(object);
  if (tag == kTextTag) return textOfBytes(dataOf(value));
  if (tag == kDateTag) return NSDate{realOf(value)};
  if (tag == kDataTag) return dataOf(value);
  if (tag == kDictionaryTag) return dictionaryOfPairs(value, depth);
  throw BadValue("its JSON has the unknown mark " + inQuotes(tag));
}

List listOf(const Json& json, int depth) {
  List list;
  for (const Json& element : json) list.push_back(fromJson(element, depth + 1));
  return list;
}

PropertyValue valueOfObject(const Json& json, int depth) {
  const auto& members = json.get_ref<const Json::object_t&>();
  if (members.size() == 1 && members.begin()->first.starts_with('$')) {
    return taggedValue(json, depth);
  }
  Dictionary dictionary;
  for (const auto& [key, value] : members) dictionary.emplace(key, fromJson(value, depth + 1));
  return dictionary;
}

PropertyValue fromJson(const Json& json, int depth) {
  if (depth > kDeepest && json.is_structured()) throw BadValue("it nests too deeply");
  switch (json.type()) {
    case Json::value_t::boolean:
      return json.get<bool>();
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned: {
      const auto number = json.get<std::uint64_t>();
      if (number <= std::numeric_limits<std::int64_t>::max()) return json.get<std::int64_t>();
      return static_cast<double>(number);
    }
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get_ref<const std::string&>();
    case Json::value_t::array:
      return listOf(json, depth);
    case Json::value_t::object:
      return valueOfObject(json, depth);
    default:
      throw BadValue("its JSON has a null in it");
  }
}

PropertyValue valueOfJson(std::string_view text) {
  try {
    return fromJson(Json::parse(text), 1);
  } catch (const Json::exception&) {
    throw BadValue("it is not JSON");
  }
}

// The value of JSON that must be of the type.
PropertyValue valueOfJson(std::string_view type, std::string_view text) {
  PropertyValue value = valueOfJson(text);
  if (typeName(value) != type) throw BadValue("its JSON is no " + std::string(type));
  return value;
}

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
    return bytesOf(text);
  }
  Column operator()(NSDate date) const { return columnOfReal(date.timeIntervalSinceReferenceDate); }
  Column operator()(const Data& data) const { return data; }
  Column operator()(const List& list) const { return ToJson()(list).dump(); }
  Column operator()(const Dictionary& dictionary) const { return ToJson()(dictionary).dump(); }
};

std::optional<double> realOf(const Column& column) {
  if (std::holds_alternative<std::nullptr_t>(column)) return kNaN;
  if (const auto* real = std::get_if<double>(&column)) return *real;
  if (const auto* integer = std::get_if<std::int64_t>(&column)) {
    return static_cast<double>(*integer);
  }
  return std::nullopt;
}

std::optional<PropertyValue> valueOfText(Column column) {
  if (auto* text = std::get_if<std::string>(&column)) return std::move(*text);
  if (const auto* bytes = std::get_if<Data>(&column)) return textOfBytes(*bytes);
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
    if (const auto* text = std::get_if<std::string>(&column)) return valueOfJson(type, *text);
  }
  return std::nullopt;
}

bool nestsDeeper(const PropertyValue& value, int depth) {
  const auto deeper = [depth](const PropertyValue& inner) { return nestsDeeper(inner, depth - 1); };
  if (const auto* list = std::get_if<List>(&value.storage())) {
    return depth == 0 || std::any_of(list->begin(), list->end(), deeper);
  }
  if (const auto* dictionary = std::get_if<Dictionary>(&value.storage())) {
    return depth == 0 ||
           std::any_of(dictionary->begin(), dictionary->end(),
                       [&deeper](const auto& member) { return deeper(member.second); });
  }
  return false;
}

void expectType(std::string_view type) {
  for (const std::string_view name : kTypeNames) {
    if (name == type) return;
  }
  throw BadValue(inQuotes(type) + " is no type");
}

// Shortest, so that it reads back as the same number.
std::string textOfReal(double real) {
  return std::isfinite(real) ? Json(real).dump() : std::string(nameOfNonFinite(real));
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
double realOfText(std::string_view text) {
  if (const auto real = nonFiniteOf(text)) return *real;
  const auto real = numberOf<double>(text, "number");
  if (!std::isfinite(real)) throw BadValue("it is no number");
  return real;
}

bool booleanOfText(std::string_view text) {
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  throw BadValue("it is neither true nor false");
}

struct ToText {
  std::string operator()(std::int64_t integer) const { return std::to_string(integer); }
  std::string operator()(bool boolean) const { return boolean ? "true" : "false"; }
  std::string operator()(double real) const { return textOfReal(real); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(NSDate date) const {
    return textOfReal(date.timeIntervalSinceReferenceDate);
  }
  std::string operator()(const Data& data) const { return base64Of(data); }
  std::string operator()(const List& list) const { return ToJson()(list).dump(); }
  std::string operator()(const Dictionary& dictionary) const { return ToJson()(dictionary).dump(); }
};

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
  if (nestsDeeper(value, kDeepest)) throw BadValue("it nests too deeply");
  return {typeName(value), std::visit(ToColumn(), value.storage())};
}

PropertyValue decode(std::string_view type, Column value) {
  expectType(type);
  auto decoded = fitting(type, std::move(value));
  if (!decoded) throw BadValue("its value is no " + std::string(type));
  return *std::move(decoded);
}

std::string textOf(const PropertyValue& value) { return std::visit(ToText(), value.storage()); }

PropertyValue valueOf(std::string_view type, std::string_view text) {
  expectType(type);
  if (type == "integer") return numberOf<std::int64_t>(text, "integer");
  if (type == "boolean") return booleanOfText(text);
  if (type == "real") return realOfText(text);
  if (type == "date") return NSDate{realOfText(text)};
  if (type == "data") {
    auto data = dataOfBase64(text);
    if (!data) throw BadValue("it is not base64");
    return *std::move(data);
  }
  if (type == "text") return text;
  return valueOfJson(type, text);
}

}  // namespace wayfell
