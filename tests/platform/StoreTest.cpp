#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "platform/NSUserDefaults.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

// The table of conversions that PropertyValue documents.
TEST(Store, ConvertsOnTypedReads) {
  struct Case {
    PropertyValue value;
    std::int64_t integer;
    double real;
    bool boolean;
    std::optional<std::string> text;
  };
  const Case cases[] = {
      {-3, -3, -3, true, "-3"},
      {true, 1, 1, true, "1"},
      {3.9, 3, 3.9, true, "3.9"},
      {1e30, INT64_MAX, 1e30, true, "1e+30"},
      {0.0, 0, 0, false, "0"},
      {"YES", 0, 0, true, "YES"},
      {NSDate{12}, 0, 0, false, std::nullopt},
      {PropertyValue::Data{1}, 0, 0, false, std::nullopt},
      {PropertyValue::List{1}, 0, 0, false, std::nullopt},
      {PropertyValue::Dictionary{{"a", 1}}, 0, 0, false, std::nullopt},
  };
  SimulatedHost host;
  NSUserDefaults defaults("group.test");
  for (const Case& c : cases) {
    defaults.setObjectForKey(c.value, "key");
    EXPECT_EQ(defaults.integerForKey("key"), c.integer);
    EXPECT_EQ(defaults.doubleForKey("key"), c.real);
    EXPECT_EQ(defaults.boolForKey("key"), c.boolean);
    EXPECT_EQ(defaults.stringForKey("key"), c.text);
    EXPECT_EQ(defaults.objectForKey("key"), c.value);
  }
  EXPECT_TRUE(PropertyValue(std::nan("")).boolValue());
  EXPECT_EQ(PropertyValue(std::nan("")).integerValue(), 0);
}

TEST(Store, MissingKeysAndStoresReadAsNothing) {
  SimulatedHost host;
  NSUserDefaults defaults("group.test");
  defaults.setIntegerForKey(5, "key");
  defaults.setObjectForKey(std::nullopt, "key");
  EXPECT_EQ(defaults.integerForKey("key"), 0);
  EXPECT_EQ(defaults.objectForKey("key"), std::nullopt);

  host.hasSuite = false;
  NSUserDefaults none("group.test");
  none.setBoolForKey(true, "key");
  EXPECT_FALSE(none.boolForKey("key"));
  EXPECT_FALSE(NSUbiquitousKeyValueStore::defaultStore());
}

}  // namespace
}  // namespace wayfell
