#include "hosts/settings/SettingJson.h"

#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "hosts/text/Base64.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;
using Kind = JsonLine::Kind;

// JSON has neither dates nor data, nor numbers that are not finite, nor texts of any bytes: these
// are objects of one member, which a dictionary's never is: one that looks like it is put into
// "$dictionary", as a list of pairs, and so is one whose keys are no texts.
constexpr const char* kRealMark = "$real";
constexpr const char* kTextMark = "$text";
constexpr const char* kDateMark = "$date";
constexpr const char* kDataMark = "$data";
constexpr const char* kDictionaryMark = "$dictionary";

bool needsPairs(const Dictionary& dictionary) {
  if (dictionary.size() == 1 && dictionary.begin()->first.starts_with('$')) return true;
  for (const auto& [key, value] : dictionary) {
    if (!isUtf8(key)) return true;
  }
  return false;
}

// A visitor with an operator for each type of value.
struct WriteJson {
  JsonWriter& json;
  bool exact = true;
  int depth = 0;  // of lists and dictionaries around it

  void of(const PropertyValue& value) const { std::visit(*this, value.storage()); }

  void operator()(std::int64_t integer) const { json.value(integer); }
  void operator()(bool boolean) const { json.value(boolean); }
  void operator()(double real) const {
    if (std::isfinite(real)) {
      json.value(real);
    } else {
      writeMarked(kRealMark, nameOfNonFinite(real));
    }
  }
  void operator()(const std::string& text) const {
    if (!exact || isUtf8(text)) {
      json.value(text);
    } else {
      writeMarked(kTextMark, base64Of(Data(text.begin(), text.end())));
    }
  }
  void operator()(NSDate date) const {
    const double seconds = date.timeIntervalSinceReferenceDate;
    if (!exact) {
      (*this)(seconds);
    } else {
      json.beginObject().key(kDateMark);
      (*this)(seconds);
      json.endObject();
    }
  }
  void operator()(const Data& data) const { writeMarked(kDataMark, base64Of(data)); }
  void operator()(const List& list) const {
    const WriteJson inner = within();
    json.beginList();
    for (const PropertyValue& element : list) inner.of(element);
    json.endList();
  }
  void operator()(const Dictionary& dictionary) const {
    const WriteJson inner = within();
    json.beginObject();
    if (exact && needsPairs(dictionary)) {
      json.key(kDictionaryMark);
      inner.writePairs(dictionary);
    } else {
      for (const auto& [key, value] : dictionary) {
        json.key(key);
        inner.of(value);
      }
    }
    json.endObject();
  }

 private:
  WriteJson within() const {
    if (depth == kDeepestSetting) throw BadValue("it nests too deeply");
    return {json, exact, depth + 1};
  }
  void writeMarked(const char* mark, std::string_view text) const {
    if (exact) {
      json.beginObject().member(mark, text).endObject();
    } else {
      json.value(text);
    }
  }
  void writePairs(const Dictionary& dictionary) const {
    json.beginList();
    for (const auto& [key, value] : dictionary) {
      json.beginList();
      (*this)(key);
      of(value);
      json.endList();
    }
    json.endList();
  }
};

// None for lists, objects and null.
std::optional<PropertyValue> simpleValueOf(JsonLine::Value json) {
  if (json.kind() == Kind::boolean) return json.boolean();
  if (json.kind() == Kind::integer) return json.integer();
  if (json.kind() == Kind::real) return json.real();
  if (json.kind() == Kind::text) return json.text();
  return std::nullopt;
}

// Reads the exact form. The depth counts lists and dictionaries, not the JSON around them.
struct ReadExact {
  static PropertyValue of(JsonLine::Value json, int depth) {
    if (auto value = simpleValueOf(json)) return *std::move(value);
    if (json.kind() == Kind::list) return list(json, depth + 1);
    if (json.kind() == Kind::object) return object(json, depth + 1);
    throw BadValue("its JSON has a null in it");
  }

 private:
  static void expectDepth(int depth) {
    if (depth > kDeepestSetting) throw BadValue("it nests too deeply");
  }

  static List list(JsonLine::Value json, int depth) {
    expectDepth(depth);
    List list;
    for (const JsonLine::Value& element : json) list.push_back(of(element, depth));
    return list;
  }

  static PropertyValue object(JsonLine::Value json, int depth) {
    if (const auto member = onlyMember(json); member && member->key().starts_with('$')) {
      return marked(*member, depth);
    }
    expectDepth(depth);
    Dictionary dictionary;
    for (const JsonLine::Value& member : json) {
      dictionary.insert_or_assign(std::string(member.key()), of(member, depth));
    }
    return dictionary;
  }

  static std::optional<JsonLine::Value> onlyMember(JsonLine::Value json) {
    if (json.kind() != Kind::object || json.begin() == json.end()) return std::nullopt;
    JsonLine::Value::Iterator member = json.begin();
    const JsonLine::Value first = *member;
    return ++member == json.end() ? std::optional(first) : std::nullopt;
  }

  static PropertyValue marked(JsonLine::Value member, int depth) {
    const std::string_view mark = member.key();
    if (mark == kRealMark) return nonFinite(member);
    if (mark == kTextMark) {
      const Data bytes = data(member);
      return std::string(bytes.begin(), bytes.end());
    }
    if (mark == kDateMark) return NSDate{real(member)};
    if (mark == kDataMark) return data(member);
    if (mark == kDictionaryMark) return pairs(member, depth);
    throw BadValue("its JSON has the unknown mark " + inQuotes(mark));
  }

  static double nonFinite(JsonLine::Value name) {
    const auto real = name.kind() == Kind::text ? nonFiniteOf(name.text()) : std::nullopt;
    if (!real) throw BadValue("its JSON has a \"$real\" that is none of nan, inf and -inf");
    return *real;
  }

  static double real(JsonLine::Value json) {
    if (json.isNumber()) return json.number();
    const auto member = onlyMember(json);
    if (!member || member->key() != kRealMark)
      throw BadValue("its JSON has a date without seconds");
    return nonFinite(*member);
  }

  static Data data(JsonLine::Value json) {
    auto data = json.kind() == Kind::text ? dataOfBase64(json.text()) : std::nullopt;
    if (!data) throw BadValue("its JSON has data that is not base64");
    return *std::move(data);
  }

  static Dictionary pairs(JsonLine::Value json, int depth) {
    Dictionary dictionary;
    bool arePairs = json.kind() == Kind::list;
    for (const JsonLine::Value& pair : json) {
      List parts = pair.kind() == Kind::list ? list(pair, depth) : List();
      const auto* const key =
          parts.size() == 2 ? std::get_if<std::string>(&parts.front().storage()) : nullptr;
      arePairs = arePairs && key != nullptr;
      if (arePairs) dictionary.insert_or_assign(*key, std::move(parts.back()));
    }
    if (arePairs) return dictionary;
    throw BadValue("its JSON has a \"$dictionary\" that is no list of pairs of key and value");
  }
};

}  // namespace

void writeExactJson(JsonWriter& writer, const PropertyValue& value) {
  WriteJson{writer, true}.of(value);
}

void writePlainJson(JsonWriter& writer, const PropertyValue& value) {
  WriteJson{writer, false}.of(value);
}

PropertyValue valueOfExactJson(std::string_view text) {
  JsonLine json;
  try {
    json.parse(text, JsonLine::kAnyDepth);
  } catch (const InputError&) {
    throw BadValue("it is not JSON");
  }
  return ReadExact::of(json.root(), 0);
}

PropertyValue expectSettingValue(JsonLine::Value value, const FieldPath& path) {
  if (auto simple = simpleValueOf(value)) return *std::move(simple);
  if (value.kind() == Kind::list) {
    List list;
    for (const JsonLine::Value& element : value) {
      list.push_back(expectSettingValue(element, FieldPath(path, list.size())));
    }
    return list;
  }
  if (value.kind() == Kind::null) path.fail("expected a value");
  Dictionary dictionary;
  for (const JsonLine::Value& member : value) {
    const FieldPath memberPath(path, member.key());
    if (!dictionary.emplace(member.key(), expectSettingValue(member, memberPath)).second) {
      memberPath.fail("given twice");
    }
  }
  return dictionary;
}

}  // namespace wayfell
