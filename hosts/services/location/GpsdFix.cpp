#include "hosts/services/location/GpsdFix.h"

#include <array>

#include "hosts/services/location/FixQuality.h"

namespace wayfell {
namespace {

constexpr std::array kValues = {&GpsdFix::altitude,        &GpsdFix::heightAboveEllipsoid,
                                &GpsdFix::horizontalError, &GpsdFix::eastError,
                                &GpsdFix::northError,      &GpsdFix::verticalError,
                                &GpsdFix::speed,           &GpsdFix::track};

double horizontalAccuracy(const GpsdFix& fix) {
  if (fix.horizontalError) return accuracyOfCircle(*fix.horizontalError);
  if (!fix.eastError || !fix.northError) return kUsualAccuracy;
  return accuracyOfTwoLines(*fix.eastError, *fix.northError);
}

double verticalAccuracy(const GpsdFix& fix) {
  if (!fix.threeDimensional || !fix.altitude) return -1;
  return fix.verticalError ? accuracyOfLine(*fix.verticalError) : kUsualAccuracy;
}

}  // namespace

void GpsdFix::add(const GpsdFix& later) {
  if (later.time) time = later.time;
  coordinate = later.coordinate;
  threeDimensional = later.threeDimensional;
  for (const auto value : kValues) {
    if (later.*value) this->*value = later.*value;
  }
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
  location.course = courseAt(location.speed, track.value_or(-1));
  location.timestamp = instant;
  return location;
}

}  // namespace wayfell
