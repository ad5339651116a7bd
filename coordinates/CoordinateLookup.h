// Which grid zone and latitude band a position is in, and where in its zone.
//
// Positions are decimal degrees on the default datum; zone, band and metres are those of the
// selected datum, whose ellipsoid is projected. Nothing is refused: positions beyond 180 degrees
// get zones outside 1 to 60, and what cannot be computed is not finite.
//
// Zones are 6 degrees wide everywhere: the wider ones of southern Norway and Svalbard are not made.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "coordinates/UTMPoint.h"
#include "platform/CLLocation.h"

namespace wayfell {

class CoordinateLookup {
 public:
  /// The zone; the longitude comes first. Longitude 0 is in zone 31, 180 in zone 61.
  static std::int32_t findLongZonesWithLat(double longitude, double latitude);

  /// The band's letter: A below -84, then C to X, Z from 84; none from 90 on. C and X are 12
  /// degrees high, and B and Y do not exist.
  static std::optional<std::string> findLatZonesWithLong(double latitude, double longitude);

  /// Degrees: southern edge of the band that the text's first letter names, in either case. 0 for
  /// a letter that names none, as for N.
  static double findLatDegrees(std::string_view letter);

  /// Metres in the given zone, unrounded.
  static UTMPoint findEastingandNorthingWithLatAndLongAndZone(double latitude, double longitude,
                                                              std::int32_t zone);

  // The same of a position that is already on the selected datum.

  static std::int32_t zoneAt(double selectedLongitude);
  /// The edge of band A is measured on the default datum, all others on the selected one.
  static std::optional<std::string_view> bandAt(double defaultLatitude, double selectedLatitude);
  static UTMPoint metresAt(const CLLocationCoordinate2D& selected, std::int32_t zone);
};

}  // namespace wayfell
