// Positions as the texts that the user reads, and UTM and MGRS references back into positions.
//
// Latitudes and longitudes are decimal degrees, north and east positive, on the default datum;
// texts and grid metres are those of the selected datum. The format index is 0 decimal degrees,
// 1 degrees and decimal minutes (DM), 2 degrees, minutes and seconds (DMS), 3 MGRS, 4 UTM; the
// user's choice is the setting "coordinateUnits". Other indices, and positions out of range, give
// no text. Reading back refuses nothing: what makes no sense gives a position that makes none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CLLocation.h"
#include "platform/FormattedText.h"

namespace wayfell {

class ConvertCoordinates {
 public:
  // Whole positions.

  /// In the user's format; none beyond 90 or 180 degrees.
  static std::optional<FormattedText> convertLatAndLong(double latitude, double longitude);
  /// In a given format; none from 90.1 or 180.1 degrees on.
  static std::optional<FormattedText> convertLatAndLongWithCoordinateUnits(double latitude,
                                                                           double longitude,
                                                                           std::int64_t index);
  /// "33 N 412345.6mE 5567890.1mN".
  static FormattedText convertDecimalToUTMAndLong(double latitude, double longitude);
  /// "33U VP 12345 67890".
  static FormattedText convertDecimalToMGRSAndLong(double latitude, double longitude);

  // One coordinate: the longitude when `forLatLong` is 1, else the latitude. The letter, however,
  // is the longitude's for every value but 0.

  /// "48° 51.5079' N".
  static FormattedText convertDecimalToDMAndLongitudeForLatLong(double latitude, double longitude,
                                                                std::int32_t forLatLong);
  /// "48° 51' 30.48'' N". Seconds may read 60.00.
  static FormattedText convertDecimalToDMSAndLongitudeForLatLong(double latitude, double longitude,
                                                                 std::int32_t forLatLong);

  // Fields of a position; none where the format has no such field. Decimal latitudes and
  // longitudes have eight decimals and, unlike all other texts, are those of the default datum.

  static std::optional<std::string> updateLatitudeWithCoordinateIndexLatitudeAndLongitude(
      std::int64_t index, double latitude, double longitude);
  static std::optional<std::string> updateLongitudeWithCoordinateIndexLatitudeAndLongitude(
      std::int64_t index, double latitude, double longitude);
  static std::optional<std::string> updateZoneWithCoordinateIndexLatitudeAndLongitude(
      std::int64_t index, double latitude, double longitude);
  static std::optional<std::string> updateEastingWithCoordinateIndexLatitudeAndLongitude(
      std::int64_t index, double latitude, double longitude);
  static std::optional<std::string> updateNorthingWithCoordinateIndexLatitudeAndLongitude(
      std::int64_t index, double latitude, double longitude);

  // The same in the user's format.

  static std::optional<std::string> updateLatitudeWithDefaultCoordinateIndexLatitudeAndLongitude(
      double latitude, double longitude);
  static std::optional<std::string> updateLongitudeWithDefaultCoordinateIndexLatitudeAndLongitude(
      double latitude, double longitude);
  static std::optional<std::string> updateZoneWithDefaultCoordinateIndexLatitudeAndLongitude(
      double latitude, double longitude);
  static std::optional<std::string> updateEastingWithDefaultCoordinateIndexLatitudeAndLongitude(
      double latitude, double longitude);
  static std::optional<std::string> updateNorthingWithDefaultCoordinateIndexLatitudeAndLongitude(
      double latitude, double longitude);

  // References back to positions. They return to where the forward projection started only as
  // closely as its and their own series allow.

  /// On the selected datum; any `southern` but 0 means the southern hemisphere.
  static CLLocationCoordinate2D convertUTMtoDecimalWithZoneAndEastingAndNorthingHemisphere(
      std::int32_t zone, double easting, double northing, std::int32_t southern);
  /// On the default datum; any `hemisphere` but "north" means the southern one.
  static CLLocationCoordinate2D convertToDecimalWithZoneHemisphereAndEastingAndNorthing(
      std::int32_t zone, std::string_view hemisphere, double easting, double northing);
  /// On the default datum. The letters are band, column and row, as in "UVP", in either case; the
  /// metres are those within the square.
  static CLLocationCoordinate2D convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(
      std::int32_t zone, std::string_view zoneLetter, double easting, double northing);
  /// Northing of a band's southern edge (degrees) below a point `easting` metres into its square.
  /// Approximate, and good enough to tell one cycle of row letters from the next: the longitude is
  /// estimated at a nautical mile to the minute.
  static double findNorthingWithLatAndZoneAndZoneLetterAndEasting(double latitude,
                                                                  std::int32_t zone,
                                                                  std::string_view zoneLetter,
                                                                  double easting);

  /// Where a bearing (degrees) and a distance (metres) lead from a position, on a sphere.
  static CLLocationCoordinate2D findCoordinateFromAngleDistanceAndLocation(
      double angle, double distance, const CLLocationCoordinate2D& location);
};

}  // namespace wayfell
