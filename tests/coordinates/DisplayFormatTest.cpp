// Positions as texts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "coordinates/ConvertCoordinates.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using Convert = ConvertCoordinates;
using Text = std::optional<std::string>;

// Worked by hand; the shifted ones from positions of tests/expected/geodesy.py.
TEST(DisplayFormat, WholePositions) {
  const struct {
    double latitude, longitude;
    std::int64_t format;
    Text text;
  } cases[] = {
      {46.5, 7.25, 0, "46.50000°N, 7.25000°E"},
      {-33.8688, -151.2093, 0, "33.86880°S, 151.20930°W"},
      {0, 0, 0, "0.00000°S, 0.00000°W"},
      {46.5, 7.25, 1, "46° 30.0000' N, 7° 15.0000' E"},
      {-33.8688, 151.2093, 2, "33° 52' 7.68'' S, 151° 12' 33.48'' E"},
      {46.5, 7.25, 3, "32T LS 65720 51091"},
      {46.5, 7.25, 4, "32 N 365720.3mE 5151091.2mN"},
      {46.5, 7.25, 5, std::nullopt},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    EXPECT_EQ(Convert::convertLatAndLongWithCoordinateUnits(c.latitude, c.longitude, c.format),
              c.text);
    host.local.set("coordinateUnits", c.format);
    EXPECT_EQ(Convert::convertLatAndLong(c.latitude, c.longitude), c.text);
  }
  host.local.set("selectedDatum", "Tokyo---Japan");
  EXPECT_EQ(Convert::convertLatAndLongWithCoordinateUnits(35.68, 139.76, 0),
            "35.68175°N, 139.76322°E");
}

TEST(DisplayFormat, LimitsDiffer) {
  const struct {
    double latitude, longitude;
    bool inUsersFormat, inGivenFormat;
  } cases[] = {
      {90, 180, true, true},     {-90, -180, true, true},  {90.05, 0, false, true},
      {-90.05, 0, false, true},  {0, 180.05, false, true}, {0, -180.05, false, true},
      {90.1, 0, false, false},   {-90.1, 0, false, false}, {0, 180.1, false, false},
      {0, -180.1, false, false}, {NAN, 0, false, false},   {0, NAN, false, false},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.latitude) + " " + std::to_string(c.longitude));
    EXPECT_EQ(Convert::convertLatAndLong(c.latitude, c.longitude).has_value(), c.inUsersFormat);
    EXPECT_EQ(Convert::convertLatAndLongWithCoordinateUnits(c.latitude, c.longitude, 0).has_value(),
              c.inGivenFormat);
  }
}

// By hand, every stage rounded to six decimals.
TEST(DisplayFormat, MinutesAndSecondsGoThroughText) {
  const struct {
    double latitude;
    const char* dm;
    const char* dms;
  } cases[] = {
      {45.999999999, "46° 0.0000' N", "46° 0' 0.00'' N"},
      // 0.999999 degrees are 59.99994 minutes, and 0.99994 minutes 59.9964 seconds: no carry.
      {-12.999999, "12° 59.9999' S", "12° 59' 60.00'' S"},
      // 1.000004 degrees by then; without the text it would be 0.0003' and 0.02''.
      {1.0000043, "1° 0.0002' N", "1° 0' 0.01'' N"},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    EXPECT_EQ(Convert::convertDecimalToDMAndLongitudeForLatLong(c.latitude, 9, 0), c.dm);
    EXPECT_EQ(Convert::convertDecimalToDMSAndLongitudeForLatLong(c.latitude, 9, 0), c.dms);
  }
  // 1 picks the longitude; anything else the latitude, but with the longitude's letter unless 0.
  EXPECT_EQ(Convert::convertDecimalToDMAndLongitudeForLatLong(10, -20, 1), "20° 0.0000' W");
  EXPECT_EQ(Convert::convertDecimalToDMAndLongitudeForLatLong(10, -20, 2), "10° 0.0000' W");
  EXPECT_EQ(Convert::convertDecimalToDMSAndLongitudeForLatLong(10, -20, -1), "10° 0' 0.00'' W");
}

TEST(DisplayFormat, Fields) {
  constexpr std::size_t kFields = 5;
  Text (*const inGivenFormat[kFields])(std::int64_t, double, double) = {
      Convert::updateLatitudeWithCoordinateIndexLatitudeAndLongitude,
      Convert::updateLongitudeWithCoordinateIndexLatitudeAndLongitude,
      Convert::updateZoneWithCoordinateIndexLatitudeAndLongitude,
      Convert::updateEastingWithCoordinateIndexLatitudeAndLongitude,
      Convert::updateNorthingWithCoordinateIndexLatitudeAndLongitude,
  };
  Text (*const inUsersFormat[kFields])(double, double) = {
      Convert::updateLatitudeWithDefaultCoordinateIndexLatitudeAndLongitude,
      Convert::updateLongitudeWithDefaultCoordinateIndexLatitudeAndLongitude,
      Convert::updateZoneWithDefaultCoordinateIndexLatitudeAndLongitude,
      Convert::updateEastingWithDefaultCoordinateIndexLatitudeAndLongitude,
      Convert::updateNorthingWithDefaultCoordinateIndexLatitudeAndLongitude,
  };
  const Text none;
  // Decimal fields are not shifted to the selected datum; the others are.
  const Text expected[][kFields] = {
      {"35.68000000", "139.76000000", none, none, none},
      {"35° 40.9049' N", "139° 45.7931' E", none, none, none},
      {"35° 40' 54.29'' N", "139° 45' 47.59'' E", none, none, none},
      {none, none, "54S UE", "88096", "48963"},
      {none, none, "54 N", "388096.3", "3948962.5"},
      {none, none, none, none, none},
  };
  SimulatedHost host;
  host.local.set("selectedDatum", "Tokyo---Japan");
  for (std::int64_t format = 0; const auto& fields : expected) {
    host.local.set("coordinateUnits", format);
    for (std::size_t i = 0; i < kFields; ++i) {
      EXPECT_EQ(inGivenFormat[i](format, 35.68, 139.76), fields[i]) << format << " " << i;
      EXPECT_EQ(inUsersFormat[i](35.68, 139.76), fields[i]) << format << " " << i;
    }
    ++format;
  }
}

}  // namespace
}  // namespace wayfell
