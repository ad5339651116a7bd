// How the values of settings are written as text and JSON. The expected forms are those of
// docs/shared-suite.md and of the manual.
#include "hosts/settings/SettingValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "hosts/settings/SettingJson.h"
#include "support/Exactly.h"

namespace wayfell {
namespace {

using namespace std::string_literals;
using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;

std::string plainJson(const PropertyValue& value) {
  JsonWriter json;
  writePlainJson(json, value);
  return json.text();
}

TEST(SettingValue, IsWrittenAsDocumentedAndReadBack) {
  struct Case {
    PropertyValue value;
    std::string type;
    std::string text;
    std::string plain;
  };
  const Case cases[] = {
      {7, "integer", "7", "7"},
      {true, "boolean", "true", "true"},
      {412.0, "real", "412.0", "412.0"},
      {std::nan(""), "real", "nan", R"("nan")"},
      {-HUGE_VAL, "real", "-inf", R"("-inf")"},
      {"7", "text", "7", R"("7")"},
      {"\"\n\xc3\xa9\xff", "text", "\"\n\xc3\xa9\xff", "\"\\\"\\n\xc3\xa9\xef\xbf\xbd\""},
      {NSDate{812345678.5}, "date", "812345678.5", "812345678.5"},
      {Data{0xfb, 0xff}, "data", "+/8=", R"("+/8=")"},
      {Data{'f', 'o', 'o', 'b', 'a', 'r'}, "data", "Zm9vYmFy", R"("Zm9vYmFy")"},  // RFC 4648
      {List{1, 1.0, true, "a"}, "list", R"([1,1.0,true,"a"])", R"([1,1.0,true,"a"])"},
      {Dictionary{{"a", Data{0}}, {"b", NSDate{5}}}, "dictionary",
       R"({"a":{"$data":"AA=="},"b":{"$date":5.0}})", R"({"a":"AA==","b":5.0})"},
      {List{std::nan(""), "\xff"}, "list", R"([{"$real":"nan"},{"$text":"/w=="}])",
       "[\"nan\",\"\xef\xbf\xbd\"]"},
      {Dictionary{{"$date", 5}}, "dictionary", R"({"$dictionary":[["$date",5]]})",
       R"({"$date":5})"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(typeName(c.value), c.type);
    EXPECT_EQ(textOf(c.value), c.text);
    EXPECT_EQ(exactly(valueOf(c.type, c.text)), exactly(c.value));
    EXPECT_EQ(plainJson(c.value), c.plain);
  }
}

TEST(SettingValue, IsReadFromWhatOthersWriteDifferently) {
  const std::tuple<std::string, std::string, PropertyValue> cases[] = {
      {"boolean", "YES", true},
      // 2001-01-01 is the reference date; 2001-01-02 01:00 in Paris is a day of 86400 s later.
      {"date", "2001-01-02T01:00:00+01:00", NSDate{86400}},
      {"date", "2001-01-02", NSDate{86400}},
      {"list", " [ 1 , \"\\u00e9\" ] ", List{1, "\u00e9"}},
      {"list", "[9223372036854775807, 9223372036854775808]",
       List{std::numeric_limits<std::int64_t>::max(), 9223372036854775808.0}},
      {"dictionary", R"({"$date": 5, "more": {"$date": 5}})",
       Dictionary{{"$date", 5}, {"more", NSDate{5}}}},
  };
  for (const auto& [type, text, value] : cases) {
    EXPECT_EQ(exactly(valueOf(type, text)), exactly(value)) << text;
  }
}

TEST(SettingValue, HasATypeByItselfOnlyAsANumberOrABoolean) {
  const std::pair<std::string, PropertyValue> cases[] = {
      {"5", 5}, {"5.0", 5.0}, {"true", true}, {" 5", " 5"}, {"[1]", "[1]"}, {"yes", "yes"}};
  for (const auto& [text, value] : cases) EXPECT_EQ(valueOfUntyped(text), value) << text;
}

TEST(SettingValue, SaysWhatIsNoValue) {
  const std::string noPairs =
      "its JSON has a \"$dictionary\" that is no list of pairs of key and value";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"number", "1", "\"number\" is no type"},
      {"integer", "", "it is no integer"},
      {"integer", "9223372036854775808", "it is no integer"},
      {"integer", " 1", "it is no integer"},
      {"boolean", "2", "it is neither true nor false"},
      {"real", "1,5", "it is no number"},
      {"real", "infinity", "it is no number"},
      {"date", "yesterday", "it is no date in ISO 8601, nor seconds"},
      {"data", "A A=", "it is not base64"},
      {"data", "Zg==Zg==", "it is not base64"},
      {"list", "[1,]", "it is not JSON"},
      {"list", "[\"\xff\"]", "it is not JSON"},
      {"list", "{}", "its JSON is no list"},
      {"dictionary", "[]", "its JSON is no dictionary"},
      {"dictionary", R"({"$date":5})", "its JSON is no dictionary"},
      {"list", "[null]", "its JSON has a null in it"},
      {"list", R"([{"$data":"A"}])", "its JSON has data that is not base64"},
      {"list", R"([{"$real":"big"}])",
       "its JSON has a \"$real\" that is none of nan, inf and -inf"},
      {"list", R"([{"$date":"now"}])", "its JSON has a date without seconds"},
      {"list", R"([{"$url":"x"}])", "its JSON has the unknown mark \"$url\""},
      {"dictionary", R"({"$dictionary":[[1,2]]})", noPairs},
      {"dictionary", R"({"$dictionary":[["a"]]})", noPairs},
      {"list", std::string(100000, '[') + std::string(100000, ']'), "it nests too deeply"},
  };
  for (const auto& [type, text, message] : cases) {
    try {
      valueOf(type, text);
      ADD_FAILURE() << type << ": " << message;
    } catch (const BadValue& error) {
      EXPECT_EQ(error.what(), message);
    }
  }
  valueOf("list", std::string(200, '[') + std::string(200, ']'));
}

}  // namespace
}  // namespace wayfell
