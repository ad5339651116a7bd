// How values are written down. The expected forms are those of docs/shared-suite.md; the base64 of
// RFC 4648, section 10.
#include <gtest/gtest.h>

#include <cmath>

#include "Exactly.h"
#include "hosts/services/stores/StoredValue.h"
#include "hosts/text/Base64.h"

namespace wayfell {
namespace {

using namespace std::string_literals;
using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;

TEST(StoredValue, IsWrittenAsDocumented) {
  struct Case {
    PropertyValue value;
    std::string type;
    Column column;
    std::string text;
  };
  const Case cases[] = {
      {7, "integer", std::int64_t{7}, "7"},
      {true, "boolean", std::int64_t{1}, "true"},
      {412.0, "real", 412.0, "412.0"},
      {std::nan(""), "real", nullptr, "nan"},
      {-HUGE_VAL, "real", -HUGE_VAL, "-inf"},
      {"7", "text", "7"s, "7"},
      {"a\0b"s, "text", Data{'a', 0, 'b'}, "a\0b"s},
      {NSDate{812345678.5}, "date", 812345678.5, "812345678.5"},
      {Data{0xfb, 0xff}, "data", Data{0xfb, 0xff}, "+/8="},
      {List{1, 1.0, true, "a"}, "list", R"([1,1.0,true,"a"])"s, R"([1,1.0,true,"a"])"},
      {Dictionary{{"a", Data{0}}, {"b", NSDate{5}}}, "dictionary",
       R"({"a":{"$data":"AA=="},"b":{"$date":5.0}})"s,
       R"({"a":{"$data":"AA=="},"b":{"$date":5.0}})"},
      {List{std::nan(""), "\xff"}, "list", R"([{"$real":"nan"},{"$text":"/w=="}])"s,
       R"([{"$real":"nan"},{"$text":"/w=="}])"},
      {Dictionary{{"$date", 5}}, "dictionary", R"({"$dictionary":[["$date",5]]})"s,
       R"({"$dictionary":[["$date",5]]})"},
  };
  for (const Case& c : cases) {
    const StoredValue stored = encode(c.value);
    EXPECT_EQ(stored, (StoredValue{c.type, c.column})) << exactly(c.value);
    EXPECT_EQ(exactly(decode(c.type, c.column)), exactly(c.value));
    EXPECT_EQ(textOf(c.value), c.text);
    EXPECT_EQ(exactly(valueOf(c.type, c.text)), exactly(c.value));
  }
}

// What other writers may put there besides.
TEST(StoredValue, IsReadWhereOthersWriteDifferently) {
  struct Case {
    std::string type;
    Column column;
    PropertyValue value;
  };
  const Case cases[] = {
      {"real", std::int64_t{412}, 412.0},
      {"date", std::int64_t{-1}, NSDate{-1}},
      {"text", Data{'a', 'b'}, "ab"},
      {"list", " [ 1 , \"\\u00e9\" ] "s, List{1, "\u00e9"}},
      {"list", "[9223372036854775807, 9223372036854775808]"s,
       List{std::numeric_limits<std::int64_t>::max(), 9223372036854775808.0}},
      {"dictionary", R"({"$date": 5, "more": {"$date": 5}})"s,
       Dictionary{{"$date", 5}, {"more", NSDate{5}}}},
  };
  for (const Case& c : cases) EXPECT_EQ(exactly(decode(c.type, c.column)), exactly(c.value));
}

TEST(StoredValue, SaysWhatIsNoValue) {
  struct Case {
    std::string type;
    Column column;
    std::string message;
  };
  const Case cases[] = {
      {"Integer", std::int64_t{1}, "\"Integer\" is no type"},
      {"", nullptr, "\"\" is no type"},
      {"integer", 1.0, "its value is no integer"},
      {"integer", "1"s, "its value is no integer"},
      {"boolean", std::int64_t{2}, "its value is no boolean"},
      {"boolean", "true"s, "its value is no boolean"},
      {"real", "1.5"s, "its value is no real"},
      {"text", std::int64_t{1}, "its value is no text"},
      {"date", "2026-01-01"s, "its value is no date"},
      {"data", "AAAA"s, "its value is no data"},
      {"data", nullptr, "its value is no data"},
      {"list", Data{'[', ']'}, "its value is no list"},
      {"list", "[1,]"s, "it is not JSON"},
      {"list", "[\"\xff\"]"s, "it is not JSON"},
      {"list", "[1e999]"s, "it is not JSON"},
      {"list", "{}"s, "its JSON is no list"},
      {"dictionary", "[]"s, "its JSON is no dictionary"},
      {"dictionary", R"({"$date":5})"s, "its JSON is no dictionary"},
      {"list", "[null]"s, "its JSON has a null in it"},
      {"list", R"([{"$data":"A"}])"s, "its JSON has data that is not base64"},
      {"list", R"([{"$data":5}])"s, "its JSON has data that is not base64"},
      {"list", R"([{"$real":"big"}])"s, "its JSON has {\"$real\":\"big\"} for a number"},
      {"list", R"([{"$date":"now"}])"s, "its JSON has \"now\" for a number"},
      {"list", R"([{"$url":"x"}])"s, "its JSON has the unknown mark \"$url\""},
      {"dictionary", R"({"$dictionary":[[1,2]]})"s,
       "its JSON has a \"$dictionary\" that is no list of pairs of key and value"},
      {"dictionary", R"({"$dictionary":5})"s,
       "its JSON has a \"$dictionary\" that is no list of pairs of key and value"},
      {"list", std::string(201, '[') + std::string(201, ']'), "it nests too deeply"},
      {"list", std::string(100000, '[') + std::string(100000, ']'), "it nests too deeply"},
  };
  for (const Case& c : cases) {
    try {
      decode(c.type, c.column);
      ADD_FAILURE() << c.type << ": " << c.message;
    } catch (const BadValue& error) {
      EXPECT_EQ(error.what(), c.message);
    }
  }
  decode("list", std::string(200, '[') + std::string(200, ']'));
}

TEST(StoredValue, IsReadFromWhatPeopleType) {
  EXPECT_EQ(valueOf("boolean", "0"), PropertyValue(false));
  EXPECT_EQ(valueOf("date", "-0.5"), PropertyValue(NSDate{-0.5}));
  const std::pair<std::string, std::string> bad[] = {
      {"integer", ""},      {"integer", "1.5"}, {"integer", "9223372036854775808"},
      {"integer", " 1"},    {"boolean", "YES"}, {"real", "1,5"},
      {"real", "infinity"}, {"real", "nan(1)"}, {"date", "yesterday"},
      {"data", "A"},        {"data", "A A="},   {"list", "1"},
      {"dictionary", ""},   {"number", "1"},
  };
  for (const auto& [type, text] : bad) {
    EXPECT_THROW(valueOf(type, text), BadValue) << type << ' ' << text;
  }
}

TEST(Base64, IsTheStandardOne) {
  const std::pair<std::string, std::string> vectors[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"}};
  for (const auto& [bytes, text] : vectors) {
    const Data data(bytes.begin(), bytes.end());
    EXPECT_EQ(base64Of(data), text);
    EXPECT_EQ(dataOfBase64(text), data);
  }
  for (const char* bad : {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zm-v", "Zm9v\n"}) {
    EXPECT_FALSE(dataOfBase64(bad)) << bad;
  }
}

}  // namespace
}  // namespace wayfell
