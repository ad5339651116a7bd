#include "settings/UserDefaults.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

TEST(UserDefaults, BooleansAreIntegersAndIntegersKeep32Bits) {
  SimulatedHost host;
  UserDefaults::setBoolForString(true, "useMils");
  EXPECT_EQ(*host.local.find("useMils"), PropertyValue(1));
  EXPECT_TRUE(UserDefaults::checkDefaults("useMils"));
  UserDefaults::setIntForString(0x1'8000'0000, "units");
  EXPECT_EQ(*host.local.find("units"), PropertyValue(std::int64_t{0x1'8000'0000}));
  EXPECT_EQ(UserDefaults::checkIntDefaults("units"), INT32_MIN);
}

TEST(UserDefaults, WithoutAStoreReadsAreZeroAndWritesAreLost) {
  SimulatedHost host;
  host.local.set("units", 2);
  UserDefaults::syncronizeKey("units");  // there is no cloud store
  EXPECT_EQ(UserDefaults::checkObjectDefaultsWithiCloud("units"), PropertyValue(2));
  host.hasCloud = true;
  host.cloud.set("units", 1);
  EXPECT_EQ(UserDefaults::checkObjectDefaultsWithiCloud("units"), PropertyValue(1));
  host.hasLocal = false;
  UserDefaults::syncronizeKey("units");
  UserDefaults::setStringForKey("text", "units");
  UserDefaults::setIntForString(3, "units");
  EXPECT_EQ(UserDefaults::checkObjectDefaults("units"), std::nullopt);
  EXPECT_EQ(UserDefaults::checkStringDefaults("units"), std::nullopt);
  EXPECT_EQ(UserDefaults::checkIntDefaults("units"), 0);
  EXPECT_FALSE(UserDefaults::checkDefaults("units"));
  EXPECT_EQ(*host.local.find("units"), PropertyValue(2));
}

// What each kind of key becomes on its way down; "none" is a missing value.
TEST(UserDefaults, SyncTypesAKeyByItsSet) {
  struct Case {
    const char* key;
    std::optional<PropertyValue> cloud;
    std::optional<PropertyValue> local;
  };
  const Case cases[] = {
      {"rateAppCount", 3.9, 3},
      {"rateAppCount", std::nullopt, 0},
      {"rateAppCount", -2.5, -2},
      {"units", "2", 0},  // a text is no number in the cloud
      {"units", NSDate{2}, 0},
      {"compassHeading", true, 1},
      {"defaultTrackName", "My track", 0},  // a number all the same
      {"showTrackPins", true, true},        // also a boolean by name: copied as an object
      {"showTrackPins", "pins", "pins"},
      {"customMapArray", PropertyValue::List{1, "two"}, PropertyValue::List{1, "two"}},
      {"display1", std::nullopt, std::nullopt},
      {"rotateMap", 7, true},
      {"hideToolbar", "YES", false},
      {"sleepMode", PropertyValue::List{true}, false},
      {"groundOverlayTransparency", 0.5, true},
      {"sounds", std::nullopt, false},
      {"selectedDatum", "elsewhere", "before"},  // no set: left alone
  };
  for (const Case& c : cases) {
    SimulatedHost host;
    host.hasCloud = true;
    host.cloud.set(c.key, c.cloud);
    host.local.set(c.key, "before");
    UserDefaults::syncronizeKey(c.key);
    const PropertyValue* found = host.local.find(c.key);
    EXPECT_EQ(found ? std::optional(*found) : std::nullopt, c.local) << c.key;
  }
}

}  // namespace
}  // namespace wayfell
