// A place in the metres of a UTM zone.
#pragma once

namespace wayfell {

/// Metres, the false easting of 500 km and the southern false northing of 10000 km included.
struct UTMPoint {
  double easting = 0;
  double northing = 0;

  friend bool operator==(const UTMPoint&, const UTMPoint&) = default;
};

}  // namespace wayfell
