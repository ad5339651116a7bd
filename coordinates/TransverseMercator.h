// The arithmetic under the UTM and grid readouts, as plain functions: positions on an ellipsoid to
// metres of a UTM zone and back. For this room only.
//
// Latitudes and longitudes are decimal degrees on the ellipsoid's datum. Any input is projected as
// it comes, and what cannot be computed is not finite.
#pragma once

#include <cstdint>

#include "coordinates/UTMPoint.h"
#include "datums/DatumManager.h"
#include "platform/CLLocation.h"

namespace wayfell {

/// Scale on the central meridian.
inline constexpr double kCentralScale = 0.9996;
/// Metres.
inline constexpr double kFalseEasting = 500000.0;
inline constexpr double kSouthernFalseNorthing = 10000000.0;

/// An ellipsoid's quantities, each computed from the one before.
struct Spheroid {
  explicit Spheroid(const EllipsoidShape& shape);

  double a;         ///< semi-major axis, metres
  double b;         ///< semi-minor axis, metres
  double e2;        ///< first eccentricity, squared
  double secondE2;  ///< second eccentricity, squared
};

/// Product of `exponent` times the base, from left to right.
constexpr double power(double base, int exponent) {
  double product = base;
  for (int i = 1; i < exponent; ++i) product *= base;
  return product;
}

/// Degrees: zone 31 has 3. Zones outside 1 to 60 go on in the same steps.
double centralMeridian(std::int32_t zone);

/// Northing without the false one, metres, of a latitude and an offset from the central meridian,
/// both in radians.
double northingOf(const Spheroid& spheroid, double phi, double p);

UTMPoint projected(const Spheroid& spheroid, const CLLocationCoordinate2D& position,
                   std::int32_t zone);

CLLocationCoordinate2D unprojected(const Spheroid& spheroid, const UTMPoint& point,
                                   std::int32_t zone, bool southern);

}  // namespace wayfell
