#include "coordinates/CoordinateDistance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "coordinates/ConvertCoordinates.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using Distance = CoordinateDistance;

CLLocation at(const CLLocationCoordinate2D& coordinate) {
  CLLocation location;
  location.coordinate = coordinate;
  return location;
}

// Expected values from GeographicLib 2.0, `Geodesic(6378137, 0)`.
TEST(CoordinateDistance, DistancesAndBearings) {
  const struct {
    CLLocationCoordinate2D from, to;
    double metres, bearing;
  } cases[] = {
      {{46.5, 7.25}, {47, 8}, 79814.65741276922, 45.51208910502765},
      {{0, 0}, {0, -90}, 10018754.17139462, 270},
      {{51.5, -0.125}, {-33.8688, 151.2093}, 17013204.24439556, 60.72981471964133},
      {{10, 179.5}, {10, -179.5}, 109628.2556361400, 89.91317377355260},
      {{90, 0}, {-90, 0}, 20037508.34278924, 180},
      {{12.5, -3}, {12.5009, -3}, 100.1875417139105, 0},
  };
  SimulatedHost host;
  for (const auto& [from, to, metres, bearing] : cases) {
    // The arc cosine is good to a few micrometres at 100 m, and better beyond.
    EXPECT_NEAR(Distance::getDistanceBetweenAndCoordiante(from, to), metres, 1e-4);
    EXPECT_NEAR(Distance::getDefaultDoubleDistanceFromLatAndLongToOldLatAndOldLong(
                    from.latitude, from.longitude, to.latitude, to.longitude),
                metres, 1e-4);
    EXPECT_NEAR(Distance::distanceToLocationFromLocation(at(from), at(to)), metres, 1e-4);
    EXPECT_NEAR(Distance::getAngleFromLatAndLongToOldLatAndOldLong(from.latitude, from.longitude,
                                                                   to.latitude, to.longitude),
                bearing, 1e-11);
  }
}

TEST(CoordinateDistance, IsZeroForEqualPositionsAndForNoNumber) {
  SimulatedHost host;
  for (double latitude = -90; latitude <= 90; latitude += 0.37) {
    EXPECT_EQ(Distance::getDistanceFromLatAndLongToOldLatAndOldLong(latitude, 7.3, latitude, 7.3),
              0);
  }
  EXPECT_EQ(Distance::getDistanceFromLatAndLongToOldLatAndOldLong(NAN, 0, 0, 0), 0);
}

// By hand.
TEST(CoordinateDistance, Texts) {
  const struct {
    int units;
    double metres;
    std::optional<std::string> text;
  } cases[] = {
      {1, 50, "0.05 km (50.00 m)"}, {1, 100, "0.10 km"},
      {1, 1254, "1.25 km"},         {0, 50, "0.03 miles (164.04 ft)"},
      {0, 1609.344, "1.00 miles"},  {2, 50, "0.03 nm (164.04 ft)"},
      {2, 1852, "1.00 nm"},         {3, 50, std::nullopt},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    host.local.set("units", c.units);
    EXPECT_EQ(Distance::getDistanceStringforDistance(c.metres), c.text);
  }
}

TEST(CoordinateDistance, BearingTexts) {
  SimulatedHost host;
  const auto text = [](double latitude, double longitude) {
    return Distance::getAngleStringFromLatAndLongToOldLatAndOldLong(0, 0, latitude, longitude);
  };
  EXPECT_EQ(text(0, -1), "270.0°");
  EXPECT_EQ(text(1, 0), "0.0°");
  EXPECT_EQ(text(1, -1e-16), "360.0°");  // a full turn stays one
  host.local.set("useMils", true);
  EXPECT_EQ(text(0, -1), "4800 mils");
  EXPECT_EQ(text(1, 1e-16), "0 mils");
}

// Likewise.
TEST(CoordinateDistance, Destinations) {
  const struct {
    CLLocationCoordinate2D start;
    double bearing, metres;
    CLLocationCoordinate2D destination;
  } cases[] = {
      {{10, 179.5}, 90, 200000, {9.9950335644060, -178.67567209599}},
      {{-45, -179.9}, 250, 150000, {-45.446722319988, 178.29504949403}},
      {{60, 10}, 0, 1000, {60.008983152841, 10}},
      {{46.5, 7.25}, 123.4, 98765.4, {46.006613262236, 8.3164225419444}},
      {{46.5, 190}, 123.4, 0, {46.5, -170}},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    const auto [latitude, longitude] = c.start;
    EXPECT_NEAR(
        Distance::getLatitudeFromLatLongAngleDistance(latitude, longitude, c.bearing, c.metres),
        c.destination.latitude, 1e-11);
    EXPECT_NEAR(
        Distance::getLongitudeFromLatLongAngleDistance(latitude, longitude, c.bearing, c.metres),
        c.destination.longitude, 1e-11);
    const auto both = ConvertCoordinates::findCoordinateFromAngleDistanceAndLocation(
        c.bearing, c.metres, c.start);
    EXPECT_NEAR(both.latitude, c.destination.latitude, 1e-11);
    EXPECT_NEAR(both.longitude, c.destination.longitude, 1e-11);
  }
}

// By hand: 1000 / (111132.92 - 559.82 cos 2p + 1.175 cos 4p) to the north at latitude p, and to the
// east 1000 / (111412.84 cos p - 93.5 cos 3p).
TEST(CoordinateDistance, SizeOfADegree) {
  const struct {
    double latitude, north, east;
  } cases[] = {
      {0, 0.00904369483770072, 0.00898316500978177},
      {60, 0.00897567428462810, 0.0179211726468425},
      {-30, 0.00902100267587747, 0.0103641603461437},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(Distance::getDegreesPerKilometersForLat(c.latitude), c.north, 1e-15);
    EXPECT_NEAR(Distance::getDegreesPerKilometersForLong(c.latitude), c.east, 1e-15);
  }
  EXPECT_GT(std::abs(Distance::getDegreesPerKilometersForLong(90)), 1e12);
}

}  // namespace
}  // namespace wayfell
