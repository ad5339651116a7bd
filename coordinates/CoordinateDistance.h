// Distances, bearings and destinations on a sphere, whose radius is the default datum's semi-major
// axis, and the size of a degree.
//
// Positions are decimal degrees, distances metres, bearings degrees clockwise from north. Nothing
// is refused; latitudes beyond 90 degrees are not guarded against.
#pragma once

#include <optional>
#include <string>

#include "platform/CLLocation.h"

namespace wayfell {

class CoordinateDistance {
 public:
  // Metres. Exactly 0 for two equal positions, and 0 where there is no number.

  /// The misspelling belongs to the name.
  static double getDistanceBetweenAndCoordiante(const CLLocationCoordinate2D& coordinate,
                                                const CLLocationCoordinate2D& other);
  static double getDoubleDistanceFromLatAndLongToOldLatAndOldLong(double latitude, double longitude,
                                                                  double oldLatitude,
                                                                  double oldLongitude);
  /// On a sphere of 6378.137 km, whatever the default datum's axis.
  static double getDefaultDoubleDistanceFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                         double longitude,
                                                                         double oldLatitude,
                                                                         double oldLongitude);
  static double getDistanceFromLatAndLongToOldLatAndOldLong(double latitude, double longitude,
                                                            double oldLatitude,
                                                            double oldLongitude);
  static double distanceToLocationFromLocation(const CLLocation& location,
                                               const CLLocation& oldLocation);

  /// "1.25 km" by the setting "units", with smaller units added below 0.1: "0.05 km (50.00 m)".
  /// None for unknown units.
  static std::optional<std::string> getDistanceStringforDistance(double metres);

  /// Bearing at the first position of the old one, from 0 to 360, both included.
  static double getAngleFromLatAndLongToOldLatAndOldLong(double latitude, double longitude,
                                                         double oldLatitude, double oldLongitude);
  /// "270.0°", or "4800 mils" when the setting "useMils" is on.
  static std::string getAngleStringFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                    double longitude,
                                                                    double oldLatitude,
                                                                    double oldLongitude);

  // Where a bearing and a distance lead. The longitude is brought into -180 to 180.

  static double getLatitudeFromLatLongAngleDistance(double latitude, double longitude, double angle,
                                                    double distance);
  static double getLongitudeFromLatLongAngleDistance(double latitude, double longitude,
                                                     double angle, double distance);
  /// Both at once.
  static CLLocationCoordinate2D destination(const CLLocationCoordinate2D& start, double angle,
                                            double distance);

  /// Degrees of latitude to a kilometre, by an ellipsoid's series of few terms.
  static double getDegreesPerKilometersForLat(double latitude);
  /// Degrees of longitude to a kilometre; very large at the poles.
  static double getDegreesPerKilometersForLong(double latitude);
};

}  // namespace wayfell
