#include "hosts/services/location/GpsdFix.h"

#include <cmath>

namespace wayfell {
namespace {

// From 95 % to 68 % of normally distributed errors: in a plane, where a circle of radius r holds
// 1 - exp(-r^2 / 2 sigma^2) of them, sqrt(ln 0.32 / ln 0.05); along a line 0.99446 to 1.95996
// standard deviations. A circle made from the errors along two lines has 1.50959 times the root
// mean square of their standard deviations, 1.50959 / (1.95996 sqrt 2).
constexpr double kOfCircle = 0.61673;
constexpr double kOfLine = 0.50739;
constexpr double kOfTwoLines = 0.54463;

constexpr double kUsualAccuracy = 5;  // metres
constexpr double kStandstill = 0.25;  // metres per second

void take(std::optional<double>& value, const std::optional<double>& later) {
  if (later) value = later;
}

double horizontalAccuracy(const GpsdFix& fix) {
  if (fix.horizontalError) return kOfCircle * *fix.horizontalError;
  if (!fix.eastError || !fix.northError) return kUsualAccuracy;
  return kOfTwoLines * std::hypot(*fix.eastError, *fix.northError);
}

double verticalAccuracy(const GpsdFix& fix) {
  if (!fix.threeDimensional || !fix.altitude) return -1;
  return fix.verticalError ? kOfLine * *fix.verticalError : kUsualAccuracy;
}

double course(const GpsdFix& fix) {
  return fix.speed.value_or(kStandstill) < kStandstill ? -1 : fix.track.value_or(-1);
}

}  // namespace

void GpsdFix::add(const GpsdFix& later) {
  if (later.time) time = later.time;
  coordinate = later.coordinate;
  threeDimensional = later.threeDimensional;
  take(altitude, later.altitude);
  take(heightAboveEllipsoid, later.heightAboveEllipsoid);
  take(horizontalError, later.horizontalError);
  take(eastError, later.eastError);
  take(northError, later.northError);
  take(verticalError, later.verticalError);
  take(speed, later.speed);
  take(track, later.track);
}

bool GpsdFix::hasAllOf(const GpsdFix& other) const {
  const auto has = [](const std::optional<double>& ours, const std::optional<double>& theirs) {
    return ours.has_value() || !theirs.has_value();
  };
  return (threeDimensional || !other.threeDimensional) && has(altitude, other.altitude) &&
         has(horizontalError, other.horizontalError) && has(verticalError, other.verticalError) &&
         has(speed, other.speed);
}

CLLocation GpsdFix::location(NSDate instant) const {
  CLLocation location;
  location.coordinate = coordinate;
  location.altitude = altitude.value_or(heightAboveEllipsoid.value_or(0));
  location.horizontalAccuracy = horizontalAccuracy(*this);
  location.verticalAccuracy = verticalAccuracy(*this);
  location.speed = speed.value_or(-1);
  location.course = course(*this);
  location.timestamp = instant;
  return location;
}

}  // namespace wayfell
