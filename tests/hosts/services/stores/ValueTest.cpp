// How values are kept in rows, as docs/shared-suite.md has it, and that they come back; what stands
// in texts and JSON is proven in SettingValueTest.cpp.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "WatchedStore.h"
#include "hosts/services/stores/StoredValue.h"
#include "support/Exactly.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

using namespace std::string_literals;
using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;

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
      {List{1, NSDate{5}}, "list", R"([1,{"$date":5.0}])"s},
      {Dictionary{{"a", 1}}, "dictionary", R"({"a":1})"s},
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

// Another program writes each value, and yet another reads it.
TEST(StoredValue, IsKeptExactly) {
  const Folder folder;
  const auto file = folder / "suite.db";
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const List nested = {1,
                       1.0,
                       "1",
                       -0.0,
                       std::nan(""),
                       -kInfinity,
                       NSDate{-0.5},
                       Data{0, 255},
                       "a\0b"s,
                       "\xff"s,
                       List{},
                       Dictionary{{"", List{NSDate{kInfinity}}}}};
  const PropertyValue values[] = {
      std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(), true, 0.0,
      -0.0, 1.0, 0.1, 1e22, DBL_MAX, DBL_TRUE_MIN, kInfinity, -kInfinity, std::nan(""), "", "1",
      "\u00e9\n\U0001F9ED", "a\0b"s, "\0"s, "\xff\xfe",
      "\xed\xa0\x80",  // a surrogate, which UTF-8 has not
      NSDate{0}, NSDate{812345678.123456}, NSDate{std::nan("")}, Data{}, Data{0}, List{}, nested,
      List{List{List{}}}, Dictionary{}, Dictionary{{"a", 1}, {"b", nested}},
      // What a mark in JSON could be taken for.
      Dictionary{{"$date", 12}}, Dictionary{{"$dictionary", List{}}}, Dictionary{{"$", "x"}},
      Dictionary{{"$date", 12}, {"$data", "AAAA"}}, Dictionary{{"\xff", 1}, {"a\0b"s, 2}}};
  for (const PropertyValue& value : values) {
    // In place of another value, and of one that compares equal.
    WatchedStore(file).store.set("same", value);
    const WatchedStore reader(file, SqliteStore::Access::readOnly);
    const PropertyValue* const found = reader.store.find("same");
    ASSERT_NE(found, nullptr) << exactly(value);
    EXPECT_EQ(exactly(*found), exactly(value));
  }
}

TEST(StoredValue, IsFoundByItsKeyOnly) {
  const Folder folder;
  WatchedStore opened(folder / "suite.db");
  SqliteStore& store = opened.store;
  const std::string keys[] = {"",         "units",     "Units", "units ",
                              "uni",      "u\0nits"s,  "u\0"s,  "\xff",
                              "\xc3\xa9", "e\xcc\x81", "12",    "'; DROP TABLE settings; --"};
  int number = 0;
  for (const std::string& key : keys) store.set(key, ++number);
  number = 0;
  for (const std::string& key : keys) {
    const PropertyValue* const found = store.find(key);
    ASSERT_NE(found, nullptr) << key;
    EXPECT_EQ(*found, PropertyValue(++number)) << key;
  }
  store.set("units", std::nullopt);
  store.set("absent", std::nullopt);
  EXPECT_EQ(store.find("units"), nullptr);
  EXPECT_EQ(store.find("absent"), nullptr);
  EXPECT_EQ(*store.find("Units"), PropertyValue(3));
}

}  // namespace
}  // namespace wayfell
