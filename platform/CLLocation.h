// A position fix as a receiver reports it.
#pragma once

#include "platform/NSDate.h"

namespace wayfell {

/// Decimal degrees on WGS 84, north and east positive.
struct CLLocationCoordinate2D {
  double latitude = 0;
  double longitude = 0;

  friend bool operator==(const CLLocationCoordinate2D&, const CLLocationCoordinate2D&) = default;
};

struct CLLocation {
  CLLocationCoordinate2D coordinate;
  /// Metres above mean sea level.
  double altitude = 0;
  /// Metres; negative when the position, or the altitude, is invalid.
  double horizontalAccuracy = 0;
  double verticalAccuracy = 0;
  /// Metres per second; negative when unknown.
  double speed = -1;
  /// Degrees clockwise from true north; negative when unknown.
  double course = -1;
  NSDate timestamp;

  /// Metres between the two positions, altitudes left aside: the length of the geodesic on the
  /// WGS 84 ellipsoid. Exactly 0 for equal positions, and exactly the same both ways; good to a
  /// micrometre at walking scale and to 0.01 % for nearly antipodal pairs.
  double distanceFromLocation(const CLLocation& other) const;

  friend bool operator==(const CLLocation&, const CLLocation&) = default;
};

}  // namespace wayfell
