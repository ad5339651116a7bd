// The pieces of a UTM or MGRS reference as texts, for readouts that show them apart.
//
// Positions are decimal degrees on the default datum; the texts are those of the selected datum.
// There is a text for every input: a missing band letter shows as "(null)", a square letter
// beyond its table as nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace wayfell {

class FindCoordinates {
 public:
  // UTM.

  /// "33 N"; "33 U" when the setting "utmType" is 1.
  static std::string findUTMZoneWithLatAndLong(double latitude, double longitude);
  /// Metres with one decimal.
  static std::string findUTMEastingWithLatAndLong(double latitude, double longitude);
  static std::string findUTMNorthingWithLatAndLong(double latitude, double longitude);

  // MGRS.

  /// "33U VP": zone, band, square.
  static std::string findMGRSZoneWithLatAndLong(double latitude, double longitude);
  /// "U VP".
  static std::string findMGRSZoneBandsWithLatAndLong(double latitude, double longitude);
  /// "UVP", both.
  static std::string findMGRSZoneLettersWithLatAndLong(double latitude, double longitude);
  static std::string findMGRSZoneForGridWithLatAndLong(double latitude, double longitude);
  /// Five digits: metres within the square.
  static std::string findMGRSEastingWithLatAndLong(double latitude, double longitude);
  static std::string findMGRSNorthingWithLatAndLong(double latitude, double longitude);

  /// A second way to a reference, with the textbook series, square letters by a scheme of its own,
  /// and the position taken on the selected ellipsoid as it is, without a datum shift. Nothing in
  /// the widget uses it, and it writes two debug lines to std::clog. None, with the arguments as
  /// they were, for a latitude beyond 90 or a longitude beyond 180.
  static std::optional<std::string>
  findZoneLatitudeZoneDigraphZoneEastingAndNorthingFromLatitudeAndLongitude(
      std::int32_t& zone, std::string& latitudeZone, std::string& digraphZone, double& easting,
      double& northing, double latitude, double longitude);
};

}  // namespace wayfell
