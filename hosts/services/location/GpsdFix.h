// A position as gpsd reports it, and as the system takes it.
//
// In the location record
//   coordinate          is lat and lon.
//   altitude            is above mean sea level: altMSL, or else alt, which is the same in gpsd
//                       before 3.20, or else altHAE less geoidSep. What has only a height above
//                       the ellipsoid keeps that, up to 107 m off, with an invalid accuracy.
//                       Without any it is 0, likewise.
//   horizontalAccuracy  is 0.617 eph, or else 0.545 of the root of epx^2 + epy^2, or else 5 m. An
//                       estimate of 0 or less is none.
//   verticalAccuracy    is 0.507 epv, or else 5 m; -1 unless the fix is three-dimensional and has
//                       an altitude above mean sea level.
//   speed               is speed, or else -1.
//   course              is track, or else -1; also -1 below 0.25 m/s, where it is noise.
//   timestamp           is time.
//
// FixQuality.h says why these factors.
#pragma once

#include <optional>

#include "platform/CLLocation.h"
#include "platform/NSDate.h"

namespace wayfell {

/// One report, or what several of one instant say together. Metres, degrees, metres per second;
/// error estimates are gpsd's own.
struct GpsdFix {
  std::optional<NSDate> time;
  CLLocationCoordinate2D coordinate;
  bool threeDimensional = false;
  std::optional<double> altitude;  ///< above mean sea level
  std::optional<double> heightAboveEllipsoid;
  std::optional<double> horizontalError;
  std::optional<double> eastError;
  std::optional<double> northError;
  std::optional<double> verticalError;
  std::optional<double> speed;
  std::optional<double> track;

  /// Takes over all that the other report has; what it lacks stays.
  void add(const GpsdFix& later);
  /// Whether it has an altitude, error estimates and a speed, as far as the other has them.
  bool hasAllOf(const GpsdFix& other) const;

  /// The instant is that of the fix, which itself may have none.
  CLLocation location(NSDate instant) const;
};

}  // namespace wayfell
