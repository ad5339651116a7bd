#include "hosts/window/positions/PositionMapping.h"

#include <QDateTime>
#include <QGeoCoordinate>
#include <cmath>

#include "hosts/services/location/FixQuality.h"

namespace wayfell {
namespace {

constexpr double kReferenceDate = 978307200;  // seconds since 1970
constexpr double kMillisecondsToSecond = 1000;

double attribute(const QGeoPositionInfo& info, QGeoPositionInfo::Attribute which, double other) {
  const double value = info.attribute(which);  // not a number without one
  return info.hasAttribute(which) && std::isfinite(value) && value >= 0 ? value : other;
}

double accuracy(const QGeoPositionInfo& info, QGeoPositionInfo::Attribute which) {
  return estimate(attribute(info, which, 0)).value_or(kUsualAccuracy);
}

NSDate timeOf(const QGeoPositionInfo& info, NSDate now) {
  if (!info.timestamp().isValid()) return now;
  const auto milliseconds = static_cast<double>(info.timestamp().toMSecsSinceEpoch());
  return {milliseconds / kMillisecondsToSecond - kReferenceDate};
}

}  // namespace

std::optional<CLLocation> locationOf(const QGeoPositionInfo& info, NSDate now) {
  const QGeoCoordinate coordinate = info.coordinate();
  if (!coordinate.isValid()) return std::nullopt;
  const bool isHigh = std::isfinite(coordinate.altitude());
  CLLocation location;
  location.coordinate = {coordinate.latitude(), coordinate.longitude()};
  location.altitude = isHigh ? coordinate.altitude() : 0;
  location.horizontalAccuracy = accuracy(info, QGeoPositionInfo::HorizontalAccuracy);
  location.verticalAccuracy = isHigh ? accuracy(info, QGeoPositionInfo::VerticalAccuracy) : -1;
  location.speed = attribute(info, QGeoPositionInfo::GroundSpeed, -1);
  location.course = courseAt(location.speed, attribute(info, QGeoPositionInfo::Direction, -1));
  location.timestamp = timeOf(info, now);
  return location;
}

CLHeading headingOf(double azimuth, std::optional<double> calibrationLevel,
                    std::optional<double> variation) {
  constexpr double kTurn = 360;
  CLHeading heading;
  heading.magneticHeading = azimuth;
  if (variation) heading.trueHeading = std::fmod(azimuth + *variation + kTurn, kTurn);
  heading.headingAccuracy = calibrationLevel.value_or(1) > 0 ? kUsualHeadingAccuracy : -1;
  return heading;
}

}  // namespace wayfell
