#include "platform/CLLocation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace wayfell {
namespace {

double distance(CLLocationCoordinate2D from, CLLocationCoordinate2D to) {
  CLLocation one;
  CLLocation other;
  one.coordinate = from;
  other.coordinate = to;
  return one.distanceFromLocation(other);
}

TEST(CLLocation, Distances) {
  struct Case {
    CLLocationCoordinate2D from, to;
    double expected, tolerance;  // metres
  };
  const Case cases[] = {
      // Closed forms on WGS 84: a pi / 180 along the equator; the meridian's quadrant of
      // 10001965.729 m (NIMA TR8350.2), once, and twice from pole to pole.
      {{0, 0}, {0, 1}, 111319.490793, 1e-6},
      {{0, 0}, {90, 0}, 10001965.729, 1e-3},
      {{90, 5}, {-90, 100}, 20003931.459, 1e-3},
      // The rest from GeographicLib 2.0, `Geodesic.WGS84.Inverse`.
      {{47.5, 11.25}, {47.50001, 11.25002}, 1.872638021, 1e-6},
      {{-33.9, 18.4}, {-33.8995, 18.4007}, 85.251317848, 1e-6},
      {{89.9999, 0}, {89.9999, 120}, 19.345964750, 1e-6},
      {{60.1699, 179.9999}, {60.17, -179.9999}, 15.729068896, 1e-6},
      {{48.8566, 2.3522}, {40.7128, -74.006}, 5852935.291767, 1e-3},
      {{10, -20}, {-5, 150}, 18795841.482959, 1e-3},
      // Nearly antipodal: the formulae converge for the first alone.
      {{0, 0}, {0.5, 179.5}, 19936288.579, 0.01},
      {{0, 0}, {0, 179.7}, 19995624.890, 0.01},
      {{-30, 12}, {29.9, -167.8}, 19989832.828, 0.01},
      {{30, 0}, {-30, 180}, 20003931.459, 0.01},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.expected);
    EXPECT_NEAR(distance(c.from, c.to), c.expected, c.tolerance);
    EXPECT_NEAR(distance(c.to, c.from), c.expected, c.tolerance);
  }
}

TEST(CLLocation, SamePlaceIsExactlyZeroAndNoPlaceHasNoDistance) {
  for (const double latitude : {-90.0, -33.9, 0.0, 47.123456789, 90.0}) {
    EXPECT_EQ(distance({latitude, 11.25}, {latitude, 11.25}), 0);
    EXPECT_EQ(distance({latitude, 180}, {latitude, -180}), 0);
  }
  EXPECT_NEAR(distance({90, 0}, {90, 77}), 0, 1e-8);
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(distance({kNone, 0}, {kNone, 0})));
  EXPECT_TRUE(std::isnan(distance({0, kInfinity}, {0, 0})));
}

// Speeds depend on comparing distances: on the second fix of a walk the last two are one and the
// same, and neither may be the longer one.
TEST(CLLocation, TheWayBackIsExactlyAsLong) {
  for (int i = 1; i < 1000; ++i) {
    const CLLocationCoordinate2D to = {47 + 2e-7 * (i % 31), 8 + 1e-5 * i};
    EXPECT_EQ(distance({47, 8}, to), distance(to, {47, 8})) << i;
  }
}

}  // namespace
}  // namespace wayfell
