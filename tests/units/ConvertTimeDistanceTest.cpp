#include "units/ConvertTimeDistance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using Convert = ConvertTimeDistance;
using Text = std::optional<std::string>;

// Expected values are worked by hand from the factors of the units.
class ConvertTimeDistanceTest : public testing::Test {
 protected:
  void set(const char* key, int value) { host.local.set(key, PropertyValue(value)); }
  SimulatedHost host;
};

TEST_F(ConvertTimeDistanceTest, Times) {
  const std::pair<double, const char*> cases[] = {
      {59.9999994, "00:59"},   {59.9999996, "01:00"},  // six decimals are read: 60.000000
      {3599, "59:59"},         {3600, "01:00:00"},
      {90061, "25:01:01"},     {-61, "-1:-1"},
      {std::nan(""), "00:00"}, {std::numeric_limits<double>::infinity(), "00:00"},
      {1e12, "596523:14:07"},  // the largest 32-bit number of seconds
  };
  for (const auto& [seconds, text] : cases) EXPECT_EQ(Convert::convertSecondsToTime(seconds), text);
}

TEST_F(ConvertTimeDistanceTest, DistancesByTheSetting) {
  struct Case {
    int units;
    double metres;
    Text plain, oneDecimal, twoDecimals;  // the latter two with a rounding factor of 0.5
  };
  const Case cases[] = {
      {0, 1609.3440006146923, "1.0 mi", "1.0 mi", "1.00 mi"},  // the double that is exactly 1 mile
      {0, 1609, "5279 ft", "1.0 mi", "1.00 mi"},
      {0, 804, "2638 ft", "2638 ft", "2638 ft"},
      {1, 1000, "1.0 km", "1.0 km", "1.00 km"},
      {1, 999, "999 m", "1.0 km", "1.00 km"},
      {1, 500, "500 m", "0.5 km", "0.50 km"},
      {1, 499.4, "499 m", "499 m", "499 m"},
      {1, std::nan(""), "nan m", "nan km", "nan km"},
      {2, 1852.000001563088, "1.0 nm", "1.0 nm", "1.00 nm"},  // exactly 1 nautical mile
      {2, 1851, "6073 ft", "1.0 nm", "1.00 nm"},
      {2, 900, "2953 ft", "2953 ft", "2953 ft"},
      {-1, 1000, std::nullopt, std::nullopt, std::nullopt},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.metres << " m, units " << c.units);
    set("units", c.units);
    EXPECT_EQ(Convert::convertMetersToDistance(c.metres), c.plain);
    const auto rounded = [&](int decimalPlace) {
      return Convert::convertMetersToDistanceWithRoundingFactorDecimalPlace(c.metres, 0.5,
                                                                            decimalPlace);
    };
    EXPECT_EQ(rounded(1), c.oneDecimal);
    EXPECT_EQ(rounded(2), c.twoDecimals);
    EXPECT_EQ(rounded(7), c.twoDecimals);
    EXPECT_EQ(rounded(0), std::nullopt);
  }
}

TEST_F(ConvertTimeDistanceTest, DistancesByArgument) {
  const auto both = Convert::convertMetersToDistanceWithUnits;
  EXPECT_EQ(both(200, true), "0.20 km (200.0 m)");
  EXPECT_EQ(both(250, true), "0.25 km");
  EXPECT_EQ(both(402, false), "0.25 mi (1318.90 ft)");  // 0.2498 miles
  EXPECT_EQ(both(403, false), "0.25 mi");

  struct Case {
    int units;
    bool baseUnits;
    Text number, word;
    double back;  // metres of 2 of the unit
  };
  const Case cases[] = {
      {0, false, "1.2", "mi", 3218.688},
      {0, true, "6561.7", "ft", 0.6096},
      {1, false, "2.0", "km", 2000},
      {1, true, "2000.0", "m", 2},
      {2, false, "1.1", std::nullopt, 3704},
      {2, true, "6561.7", std::nullopt, 0.6096},
      {-1, true, std::nullopt, std::nullopt, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.units << " " << c.baseUnits);
    EXPECT_EQ(Convert::convertMetersToDistanceWithUnitsBaseUnits(2000, c.units, c.baseUnits),
              c.number);
    EXPECT_EQ(Convert::distanceUnitsForBaseUnits(c.units, c.baseUnits), c.word);
    EXPECT_EQ(Convert::convertDistanceForUnitsBaseUnits(2, c.units, c.baseUnits), c.back);
  }
}

TEST_F(ConvertTimeDistanceTest, DistancesAndAreasByWord) {
  struct Case {
    const char* word;
    Text length;  // of 1234.5 m
    Text area;    // of 1234567 m2
  };
  const Case cases[] = {
      {"km", "1.23 km", "1.23 km"},
      {"m", "1234 m", "1234567 m"},
      {"mi", "0.77 mi", "0.48 mi"},
      {"ft", "4050 ft", "13288756 ft"},
      {"nm", "0.67 nm", "0.04 nm"},
      {"yd", "1350.1 yd", "1476529.8 yd"},
      {"acres", std::nullopt, "305.07 acres"},
      {"acre", std::nullopt, "305.07 acres"},
      {"KM", std::nullopt, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Convert::convertMetersToDistanceUnitsString(1234.5, c.word), c.length);
    EXPECT_EQ(Convert::convertMetersToDistanceSquaredUnits(1234567, c.word), c.area);
  }
}

TEST_F(ConvertTimeDistanceTest, SpeedsAndAltitudes) {
  struct Case {
    int units;
    Text speed;  // of 10 m/s
    const char* altitude;
    const char* word;
    double number;  // these three of 100 m
  };
  const Case cases[] = {{0, "22.4 mph", "328 ft", "ft", 328.08399},
                        {1, "36.0 km/h", "100 m", "m", 100},
                        {2, "19.4 kts", "328 ft", "ft", 100},
                        {-1, std::nullopt, "328 ft", "ft", 100}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.units);
    set("units", c.units);
    EXPECT_EQ(Convert::convertSpeedWithUnits(10, c.units), c.speed);
    EXPECT_EQ(Convert::convertAltitude(100), c.altitude);
    EXPECT_EQ(Convert::altitudeUnits(), c.word);
    EXPECT_DOUBLE_EQ(Convert::convertMeters(100), c.number);
  }
}

// An angle of 90 degrees by each setting, and back.
TEST_F(ConvertTimeDistanceTest, AnglesFollowTwoSettings) {
  struct Case {
    int setting;
    const char* text;
    const char* number;
    const char* word;
  };
  for (const Case& c : {Case{0, "90°", "90", "°"}, Case{1, "1600 mils", "1600", "mils"},
                        Case{2, "90°", "90", "°"}}) {
    set("useMils", c.setting);
    set("angleUnits", 1 - c.setting);
    EXPECT_EQ(Convert::convertAngle(90), c.text);
    EXPECT_EQ(Convert::angleUnits(), c.word);
    EXPECT_EQ(Convert::angleUnitsForUnits(c.setting), c.word);
    EXPECT_EQ(Convert::convertAngleWithoutUnitsOfMeasurementWithUnits(90, c.setting), c.number);
    set("angleUnits", c.setting);
    set("useMils", 1 - c.setting);
    EXPECT_EQ(Convert::convertAngleWithoutUnitsOfMeasurement(90), c.number);
  }
  const std::tuple<double, int, double> back[] = {{3200, 1, 180}, {6400, 1, 360}, {6400.5, 1, 0},
                                                  {-0.5, 1, 0},   {360, 0, 360},  {90.5, 0, 90.5},
                                                  {360.5, 0, 0},  {-1, 0, 0},     {90, 2, 0}};
  for (const auto& [angle, units, degrees] : back) {
    EXPECT_EQ(Convert::convertAngleForAngleUnits(angle, units), degrees) << angle;
  }
}

// A radius of 6378137 m: a quarter circle is half of it times pi.
TEST_F(ConvertTimeDistanceTest, DistanceOnTheSphere) {
  const auto distance = Convert::getDistanceFromLatAndLongToOldLatAndOldLong;
  EXPECT_NEAR(distance(0, -45, 0, 45), 10018754.171, 0.001);
  // GeographicLib 2.0, `Geodesic(6378137, 0).Inverse`
  EXPECT_NEAR(distance(60, 10, 60, 11), 55659.2156, 0.001);
}

// Every format and word is translated by putting "x" before it, and shows it unless it is plain.
TEST_F(ConvertTimeDistanceTest, WhatIsLocalised) {
  for (const char* key :
       {"km", "m", "yd", "mils", "°", "%0.0f", "%0.1f", "%0.0f°", "%02d:%02d", "%0.2f km",
        "%0.1f km", "%0.1f nm", "%0.0f m", "%0.0f ft", " (%0.1f m)", "%0.1f yd", "%0.1f km/h"}) {
    host.strings.translations[key] = std::string("x") + key;
  }
  EXPECT_EQ(Convert::convertMetersToDistanceWithUnits(100, true), "x0.10 kmx (100.0 m)");
  EXPECT_EQ(Convert::convertMetersToDistanceWithUnitsBaseUnits(100, 1, true), "100.0");
  EXPECT_EQ(Convert::distanceUnitsForBaseUnits(1, true), "xm");
  EXPECT_EQ(Convert::convertMetersToDistanceUnitsString(1000, "xyd"), "x1093.6 yd");
  EXPECT_EQ(Convert::convertMetersToDistanceSquaredUnits(1, "xyd"), "x1.2 yd");
  EXPECT_EQ(Convert::convertSpeedWithUnits(10, 1), "36.0 km/h");
  EXPECT_EQ(Convert::convertSecondsToTime(61), "01:01");
  EXPECT_EQ(Convert::convertAngle(90), "90°");
  EXPECT_EQ(Convert::angleUnits(), "°");
  set("units", 2);
  EXPECT_EQ(Convert::convertMetersToDistance(2000), "x1.1 nm");
  EXPECT_EQ(Convert::convertMetersToDistance(100), "x328 ft");
  const auto rounded = Convert::convertMetersToDistanceWithRoundingFactorDecimalPlace;
  EXPECT_EQ(rounded(100, 1, 2), "x328 ft");
  EXPECT_EQ(rounded(100, 1, 1), "328 ft");  // plain, alone of its kind
  set("units", 1);
  EXPECT_EQ(rounded(100, 1, 1), "x100 m");
}

}  // namespace
}  // namespace wayfell
