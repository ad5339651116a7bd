// What every store does, whatever it is made of.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "WatchedStore.h"
#include "platform/SimulatedHost.h"
#include "support/Exactly.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

using namespace std::string_literals;
using Data = PropertyValue::Data;
using List = PropertyValue::List;
using Dictionary = PropertyValue::Dictionary;

// Another program writes each value, and yet another reads it.
class StoreOfOthers : public KeyValueStore {
 public:
  const PropertyValue* find(std::string_view key) const override {
    reader_ = std::make_unique<WatchedStore>(folder_ / "suite.db", SqliteStore::Access::readOnly);
    return reader_->store.find(key);
  }
  void set(std::string_view key, std::optional<PropertyValue> value) override {
    WatchedStore(folder_ / "suite.db").store.set(key, std::move(value));
  }

 private:
  Folder folder_;
  mutable std::unique_ptr<WatchedStore> reader_;
};

template <class Store>
class StoreContract : public testing::Test {
 protected:
  Store store_;
};

using Kinds = testing::Types<MemoryStore, StoreOfOthers>;
TYPED_TEST_SUITE(StoreContract, Kinds);

TYPED_TEST(StoreContract, KeepsEveryValueExactly) {
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
    this->store_.set("same", value);
    const PropertyValue* const found = this->store_.find("same");
    ASSERT_NE(found, nullptr) << exactly(value);
    EXPECT_EQ(exactly(*found), exactly(value));
  }
}

TYPED_TEST(StoreContract, KeepsKeysApart) {
  const std::string keys[] = {"",         "units",     "Units", "units ",
                              "uni",      "u\0nits"s,  "u\0"s,  "\xff",
                              "\xc3\xa9", "e\xcc\x81", "12",    "'; DROP TABLE settings; --"};
  int number = 0;
  for (const std::string& key : keys) this->store_.set(key, ++number);
  number = 0;
  for (const std::string& key : keys) {
    const PropertyValue* const found = this->store_.find(key);
    ASSERT_NE(found, nullptr) << key;
    EXPECT_EQ(*found, PropertyValue(++number)) << key;
  }
  this->store_.set("units", std::nullopt);
  this->store_.set("absent", std::nullopt);
  EXPECT_EQ(this->store_.find("units"), nullptr);
  EXPECT_EQ(this->store_.find("absent"), nullptr);
  EXPECT_EQ(*this->store_.find("Units"), PropertyValue(3));
}

}  // namespace
}  // namespace wayfell
