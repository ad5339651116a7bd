#include "coordinates/CoordinateDistance.h"

#include <cmath>

#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/UnitFactors.h"
#include "settings/StoredInteger.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

constexpr double kFixedRadius = 6378.137;  // kilometres

// Kilometres.
double sphereRadius() { return DatumManager::sharedInstance().getDefaultAxis() / 1000; }

// Metres, by the spherical law of cosines.
double distanceOnSphere(double radius, double latitude, double longitude, double oldLatitude,
                        double oldLongitude) {
  // The arc cosine cannot tell equal positions from ones some centimetres apart.
  if (latitude == oldLatitude && longitude == oldLongitude) return 0;
  const double phi1 = latitude * kRadiansPerDegree;
  const double phi2 = oldLatitude * kRadiansPerDegree;
  const double deltaLambda = (oldLongitude - longitude) * kRadiansPerDegree;
  const double metres = radius *
                        std::acos(std::sin(phi1) * std::sin(phi2) +
                                  std::cos(phi1) * std::cos(phi2) * std::cos(deltaLambda)) *
                        1000;
  return std::isnan(metres) ? 0 : metres;
}

}  // namespace

double CoordinateDistance::getDistanceBetweenAndCoordiante(const CLLocationCoordinate2D& coordinate,
                                                           const CLLocationCoordinate2D& other) {
  return getDoubleDistanceFromLatAndLongToOldLatAndOldLong(
      coordinate.latitude, coordinate.longitude, other.latitude, other.longitude);
}

double CoordinateDistance::getDoubleDistanceFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                             double longitude,
                                                                             double oldLatitude,
                                                                             double oldLongitude) {
  return distanceOnSphere(sphereRadius(), latitude, longitude, oldLatitude, oldLongitude);
}

double CoordinateDistance::getDefaultDoubleDistanceFromLatAndLongToOldLatAndOldLong(
    double latitude, double longitude, double oldLatitude, double oldLongitude) {
  return distanceOnSphere(kFixedRadius, latitude, longitude, oldLatitude, oldLongitude);
}

double CoordinateDistance::getDistanceFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                       double longitude,
                                                                       double oldLatitude,
                                                                       double oldLongitude) {
  return getDoubleDistanceFromLatAndLongToOldLatAndOldLong(latitude, longitude, oldLatitude,
                                                           oldLongitude);
}

double CoordinateDistance::distanceToLocationFromLocation(const CLLocation& location,
                                                          const CLLocation& oldLocation) {
  return getDistanceBetweenAndCoordiante(location.coordinate, oldLocation.coordinate);
}

std::optional<std::string> CoordinateDistance::getDistanceStringforDistance(double metres) {
  const auto text = [](std::string_view format, double value, std::string_view smallFormat,
                       double smallValue) {
    std::string main = localizedStringWithFormat(format, value);
    return value < 0.1 ? main + localizedStringWithFormat(smallFormat, smallValue) : main;
  };
  switch (storedInteger("units")) {
    case 0:
      return text(textKey("%0.2f miles"), miles(metres), textKey(" (%0.2f ft)"), feet(metres));
    case 1:
      return text(textKey("%0.2f km"), kilometres(metres), textKey(" (%0.2f m)"),
                  kilometres(metres) * 1000);
    case 2:
      return text(textKey("%0.2f nm"), nauticalMiles(kilometres(metres) * 1000),
                  textKey(" (%0.2f ft)"), feet(metres));
    default:
      return std::nullopt;
  }
}

double CoordinateDistance::getAngleFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                    double longitude,
                                                                    double oldLatitude,
                                                                    double oldLongitude) {
  const double phi1 = latitude * kRadiansPerDegree;
  const double phi2 = oldLatitude * kRadiansPerDegree;
  const double deltaLambda = (oldLongitude - longitude) * kRadiansPerDegree;
  const double angle = std::atan2(std::sin(deltaLambda) * std::cos(phi2),
                                  std::cos(phi1) * std::sin(phi2) -
                                      std::sin(phi1) * std::cos(phi2) * std::cos(deltaLambda)) *
                       kDegreesPerRadian;
  // A hair west of north rounds to 360 itself.
  return angle < 0 ? angle + 360 : angle;
}

std::string CoordinateDistance::getAngleStringFromLatAndLongToOldLatAndOldLong(
    double latitude, double longitude, double oldLatitude, double oldLongitude) {
  const double angle =
      getAngleFromLatAndLongToOldLatAndOldLong(latitude, longitude, oldLatitude, oldLongitude);
  if (UserDefaults::checkDefaults("useMils")) {
    return stringWithFormat("%0.0f mils", mils(angle));
  }
  return stringWithFormat("%0.1f°", angle);
}

double CoordinateDistance::getLatitudeFromLatLongAngleDistance(double latitude, double longitude,
                                                               double angle, double distance) {
  return destination({latitude, longitude}, angle, distance).latitude;
}

double CoordinateDistance::getLongitudeFromLatLongAngleDistance(double latitude, double longitude,
                                                                double angle, double distance) {
  return destination({latitude, longitude}, angle, distance).longitude;
}

CLLocationCoordinate2D CoordinateDistance::destination(const CLLocationCoordinate2D& start,
                                                       double angle, double distance) {
  const double phi1 = start.latitude * kRadiansPerDegree;
  const double lambda1 = start.longitude * kRadiansPerDegree;
  const double theta = angle * kRadiansPerDegree;
  const double delta = distance / 1000 / sphereRadius();
  const double phi2 = std::asin(std::sin(phi1) * std::cos(delta) +
                                std::cos(phi1) * std::sin(delta) * std::cos(theta));
  const double lambda2 = lambda1 + std::atan2(std::sin(theta) * std::sin(delta) * std::cos(phi1),
                                              std::cos(delta) - std::sin(phi1) * std::sin(phi2));
  return {phi2 * kDegreesPerRadian,
          (std::fmod(lambda2 + 3 * kPi, 2 * kPi) - kPi) * kDegreesPerRadian};
}

double CoordinateDistance::getDegreesPerKilometersForLat(double latitude) {
  const double phi = latitude * kPi / 180;
  return 1000 / (111132.92 - 559.82 * std::cos(2 * phi) + 1.175 * std::cos(4 * phi));
}

double CoordinateDistance::getDegreesPerKilometersForLong(double latitude) {
  const double phi = latitude * kPi / 180;
  return 1000 / (111412.84 * std::cos(phi) - 93.5 * std::cos(3 * phi));
}

}  // namespace wayfell
