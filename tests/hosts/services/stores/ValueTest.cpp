// How values are kept in rows, as docs/shared-suite.md has it; what stands in texts and JSON is
// proven in SettingValueTest.cpp, that it comes back in ContractTest.cpp.
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
  }
  // What other writers may put there besides.
  EXPECT_EQ(exactly(decode("real", std::int64_t{412})), exactly(412.0));
  EXPECT_EQ(exactly(decode("date", std::int64_t{-1})), exactly(NSDate{-1}));
  EXPECT_EQ(exactly(decode("text", Data{'a', 'b'})), exactly("ab"));
}

TEST(StoredValue, HasAColumnThatFitsItsType) {
  const std::pair<std::string, Column> misfits[] = {
      {"Integer", std::int64_t{1}},
      {"integer", 1.0},
      {"boolean", std::int64_t{2}},
      {"boolean", "true"s},
      {"real", "1.5"s},
      {"text", std::int64_t{1}},
      {"date", "2026-01-01"s},
      {"data", nullptr},
      {"list", Data{'[', ']'}},
      {"list", "{}"s},
      {"dictionary", "[null]"s},
  };
  for (const auto& [type, column] : misfits) {
    EXPECT_THROW(decode(type, column), BadValue) << type << ' ' << column.index();
  }
}

}  // namespace
}  // namespace wayfell
