// Metres, metres per second, square metres, degrees and seconds as the user reads them, and back.
//
//   units | system   | long distance       | short distance | altitude
//   ------+----------+---------------------+----------------+---------
//     0   | imperial | miles "mi"          | feet "ft"      | feet
//     1   | metric   | kilometres "km"     | metres "m"     | metres
//     2   | nautical | nautical miles "nm" | feet, too      | feet
//
// Angle units are mils for 1, 6400 to the circle, and degrees for everything else. Operations that
// take no units read the setting "units", "useMils" or "angleUnits" at each call, from the
// process's standard settings; a missing one is 0.
//
// Unknown units give no text, or 0. Most texts come from the string table, keyed by the format;
// those marked plain do not.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FormattedText.h"

namespace wayfell {

class ConvertTimeDistance {
 public:
  /// "59:59", and from an hour on "01:00:00"; fractions are cut off. Plain.
  static std::string convertSecondsToTime(double seconds);

  // Distances in metres.

  /// Two decimals, miles unless metric, and the short unit in brackets below a quarter:
  /// "0.20 km (200.0 m)".
  static std::string convertMetersToDistanceWithUnits(double metres, bool metric);
  /// The bare number with one decimal, in the long unit, or in the short one for base units. Plain.
  static std::optional<std::string> convertMetersToDistanceWithUnitsBaseUnits(double metres,
                                                                              int units,
                                                                              bool baseUnits);
  /// The unit that belongs to such a number; none for the nautical system.
  static std::optional<std::string> distanceUnitsForBaseUnits(int units, bool baseUnits);
  /// "1.0 km"; below the rounding factor, which is in the long unit, "999 m". One decimal place,
  /// or two for 2 and more; none for 0 and less.
  static std::optional<FormattedText> convertMetersToDistanceWithRoundingFactorDecimalPlace(
      double metres, double roundingFactor, int decimalPlace);
  /// The same with one decimal place, and the short unit below 1.
  static std::optional<FormattedText> convertMetersToDistance(double metres);
  /// In a unit given by its localised word: "km", "m", "mi", "ft", "nm" or "yd".
  static std::optional<std::string> convertMetersToDistanceUnitsString(double metres,
                                                                       std::string_view word);
  /// Metres from a distance in the long unit, or in the short one for base units.
  static double convertDistanceForUnitsBaseUnits(double distance, int units, bool baseUnits);
  /// Metres between two positions in degrees, on a sphere with the default datum's semi-major
  /// axis. Exactly 0 for equal positions; others less than a metre apart may come out decimetres
  /// off, or not a number.
  static double getDistanceFromLatAndLongToOldLatAndOldLong(double latitude, double longitude,
                                                            double oldLatitude,
                                                            double oldLongitude);

  /// Square metres in a unit given by its localised word, as above or "acres" or "acre". The texts
  /// are those of lengths, without a square sign.
  static std::optional<std::string> convertMetersToDistanceSquaredUnits(double squareMetres,
                                                                        std::string_view word);

  /// Metres per second. Plain.
  static std::optional<std::string> convertSpeedWithUnits(double speed, int units);

  // Altitudes in metres.

  /// "328 ft"; metres in the metric system alone.
  static std::string convertAltitude(double metres);
  /// The unit of such a text: "ft" or "m".
  static std::string altitudeUnits();
  /// The bare number, in feet for the imperial system alone: the nautical one, whose texts are in
  /// feet, gets metres.
  static double convertMeters(double metres);

  // Angles in degrees. Plain. Some read the setting "useMils", one "angleUnits".

  /// "90°" or "1600 mils", by "useMils".
  static std::string convertAngle(double degrees);
  /// The bare number, by "angleUnits".
  static std::string convertAngleWithoutUnitsOfMeasurement(double degrees);
  /// The bare number.
  static std::string convertAngleWithoutUnitsOfMeasurementWithUnits(double degrees, int angleUnits);
  /// "°" or "mils", by "useMils".
  static std::string angleUnits();
  /// "°" or "mils".
  static std::string angleUnitsForUnits(int angleUnits);
  /// Degrees from an angle of 0 to 6400 mils or 0 to 360 degrees; 0 from all others.
  static double convertAngleForAngleUnits(double angle, int angleUnits);
};

}  // namespace wayfell
