// What every store does, whatever it is made of.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

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

void fail(const std::string& sentence) { ADD_FAILURE() << sentence; }

struct InMemory {
  MemoryStore store;
};

struct OnDisk {
  Folder folder;
  SqliteStore store{folder / "suite.db", SqliteStore::Access::readWrite, turnOfEachRead(), fail};
};

// Another program writes each value, and yet another reads it.
class StoreOfOthers : public KeyValueStore {
 public:
  const PropertyValue* find(std::string_view key) const override {
    reader_ = std::make_unique<SqliteStore>(folder_ / "suite.db", SqliteStore::Access::readOnly,
                                            turnOfEachRead(), fail);
    return reader_->find(key);
  }
  void set(std::string_view key, std::optional<PropertyValue> value) override {
    SqliteStore(folder_ / "suite.db", SqliteStore::Access::readWrite, turnOfEachRead(), fail)
        .set(key, std::move(value));
  }

 private:
  Folder folder_;
  mutable std::unique_ptr<SqliteStore> reader_;
};

struct OfOthers {
  StoreOfOthers store;
};

template <class Kind>
class StoreContract : public testing::Test {
 protected:
  Kind kind_;
  KeyValueStore& store_ = kind_.store;
};

using Kinds = testing::Types<InMemory, OnDisk, OfOthers>;
TYPED_TEST_SUITE(StoreContract, Kinds);

TYPED_TEST(StoreContract, KeepsEveryValueExactly) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const List nested = {1,
                       1.0,
                       true,
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
      0,
      -1,
      std::numeric_limits<std::int64_t>::min(),
      std::numeric_limits<std::int64_t>::max(),
      true,
      false,
      0.0,
      -0.0,
      1.0,
      0.1,
      -2.5,
      1e22,
      DBL_MAX,
      DBL_TRUE_MIN,
      kInfinity,
      -kInfinity,
      std::nan(""),
      "",
      "1",
      "12 Main St, Springfield, IL",
      "\u00e9\n\U0001F9ED",
      "a\0b"s,
      "\0"s,
      "\xff\xfe",
      "\xed\xa0\x80",  // a surrogate, which UTF-8 has not
      NSDate{0},
      NSDate{-0.5},
      NSDate{812345678.123456},
      NSDate{std::nan("")},
      Data{},
      Data{0},
      Data{1, 2},
      Data{'t', 'e', 'x', 't', 0xff},
      List{},
      nested,
      List{List{List{}}},
      Dictionary{},
      Dictionary{{"a", 1}, {"b", nested}},
      // What a mark in JSON could be taken for.
      Dictionary{{"$date", 12}},
      Dictionary{{"$dictionary", List{}}},
      Dictionary{{"$", "x"}},
      Dictionary{{"$date", 12}, {"$data", "AAAA"}},
      Dictionary{{"\xff", 1}, {"a\0b"s, 2}},
  };
  int number = 0;
  for (const PropertyValue& value : values) {
    const std::string key = "key" + std::to_string(++number);
    this->store_.set(key, value);
    const PropertyValue* const found = this->store_.find(key);
    ASSERT_NE(found, nullptr) << exactly(value);
    EXPECT_EQ(exactly(*found), exactly(value));
    // In place of another value, and of one that compares equal.
    this->store_.set("same", value);
    EXPECT_EQ(exactly(*this->store_.find("same")), exactly(value));
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
  EXPECT_EQ(this->store_.find("absent"), nullptr);
}

TYPED_TEST(StoreContract, ReplacesAndRemoves) {
  this->store_.set("units", 1);
  this->store_.set("other", 2);
  this->store_.set("units", "metric");
  EXPECT_EQ(*this->store_.find("units"), PropertyValue("metric"));
  this->store_.set("units", std::nullopt);
  this->store_.set("absent", std::nullopt);
  EXPECT_EQ(this->store_.find("units"), nullptr);
  EXPECT_EQ(*this->store_.find("other"), PropertyValue(2));
  this->store_.set("units", 3);
  EXPECT_EQ(*this->store_.find("units"), PropertyValue(3));
}

}  // namespace
}  // namespace wayfell
