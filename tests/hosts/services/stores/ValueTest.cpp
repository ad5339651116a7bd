// How values are kept in rows, as docs/shared-suite.md has it.
#include <gtest/gtest.h>

#include <cmath>

#include "hosts/services/stores/StoredValue.h"
#include "support/Exactly.h"

namespace wayfell {
namespace {

using namespace std::string_literals;
using Data = PropertyValue::Data;

TEST(StoredValue, IsKeptAsDocumented) {
  struct Case {
    PropertyValue value;
    std::string type;
    Column column;
  };
  const Case cases[] = {
      {7, "integer", std::int64_t{7}},
      {true, "boolean", std::int64_t{1}},
      {412.0, "real", 412.0},
      {std::nan(""), "real", nullptr},
      {-HUGE_VAL, "real", -HUGE_VAL},
      {"7", "text", "7"s},
      {"a\0b"s, "text", Data{'a', 0, 'b'}},
      {"\xff", "text", Data{0xff}},
      {NSDate{812345678.5}, "date", 812345678.5},
      {Data{0xfb, 0xff}, "data", Data{0xfb, 0xff}},
      {PropertyValue::List{1, NSDate{5}}, "list", R"([1,{"$date":5.0}])"s},
      {PropertyValue::Dictionary{{"a", 1}}, "dictionary", R"({"a":1})"s},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(encode(c.value), (StoredValue{c.type, c.column})) << exactly(c.value);
    EXPECT_EQ(exactly(decode(c.type, c.column)), exactly(c.value));
  }
  // What other writers may put there besides.
  EXPECT_EQ(exactly(decode("real", std::int64_t{412})), exactly(412.0));
  EXPECT_EQ(exactly(decode("date", std::int64_t{-1})), exactly(NSDate{-1}));
  EXPECT_EQ(exactly(decode("text", Data{'a', 'b'})), exactly("ab"));
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
      {"boolean", std::int64_t{2}, "its value is no boolean"},
      {"boolean", "true"s, "its value is no boolean"},
      {"real", "1.5"s, "its value is no real"},
      {"text", std::int64_t{1}, "its value is no text"},
      {"date", "2026-01-01"s, "its value is no date"},
      {"data", nullptr, "its value is no data"},
      {"list", Data{'[', ']'}, "its value is no list"},
      {"list", "{}"s, "its JSON is no list"},
  };
  for (const Case& c : cases) {
    try {
      decode(c.type, c.column);
      ADD_FAILURE() << c.type << ": " << c.message;
    } catch (const BadValue& error) {
      EXPECT_EQ(error.what(), c.message);
    }
  }
}

}  // namespace
}  // namespace wayfell
