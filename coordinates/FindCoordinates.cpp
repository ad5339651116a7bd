#include "coordinates/FindCoordinates.h"

#include <cmath>
#include <cstddef>
#include <iostream>

#include "coordinates/CoordinateLookup.h"
#include "coordinates/GridReference.h"
#include "coordinates/TransverseMercator.h"
#include "datums/DatumManager.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"
#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

std::string bandAndSquare(const char* format, const GridPosition& position) {
  const SquareLetters square = squareLetters(position);
  return stringWithFormat(format, position.band, square.column, square.row);
}

// J. P. Snyder, Map Projections - A Working Manual, U.S. Geological Survey Professional Paper
// 1395 (1987), equations 8-9, 8-10 and 3-21.
UTMPoint textbookProjection(const Spheroid& spheroid, double latitude, double longitude,
                            std::int32_t zone) {
  const double e2 = spheroid.e2;
  const double e4 = power(e2, 2);
  const double e6 = power(e2, 3);
  const double second = spheroid.secondE2;
  const double phi = latitude * kPi / 180;
  const double p = (longitude - centralMeridian(zone)) * kPi / 180;
  const double n = spheroid.a / std::sqrt(1 - e2 * power(std::sin(phi), 2));
  const double t = power(std::tan(phi), 2);
  const double c = second * power(std::cos(phi), 2);
  const double a = p * std::cos(phi);
  const double m = spheroid.a * ((1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256) * phi -
                                 (3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024) * std::sin(2 * phi) +
                                 (15 * e4 / 256 + 45 * e6 / 1024) * std::sin(4 * phi) -
                                 (35 * e6 / 3072) * std::sin(6 * phi));
  const double x = kCentralScale * n *
                   (a + (1 - t + c) * power(a, 3) / 6 +
                    (5 - 18 * t + power(t, 2) + 72 * c - 58 * second) * power(a, 5) / 120);
  const double y =
      kCentralScale *
      (m + n * std::tan(phi) *
               (power(a, 2) / 2 + (5 - t + 9 * c + 4 * power(c, 2)) * power(a, 4) / 24 +
                (61 - 58 * t + power(t, 2) + 600 * c - 330 * second) * power(a, 6) / 720));
  return {x + kFalseEasting, latitude < 0 ? y + kSouthernFalseNorthing : y};
}

// Letters by a scheme of this converter alone, which differs from that of squareLetters.
std::string textbookDigraph(std::int32_t zone, const UTMPoint& metres) {
  const std::int32_t eightZones = 8 * zone;
  const std::int64_t column = truncatedToInt32(std::floor(metres.easting / 100000 + eightZones));
  std::clog << stringWithFormat("letr %d zone %d x %f\n", column, eightZones, metres.easting);
  const std::int64_t reduced =
      column - 24 * truncatedToInt64(std::floor(static_cast<double>(column) / 24)) - 1;
  std::clog << stringWithFormat("letr %d\n", reduced);
  const std::int64_t row = truncatedToInt32(std::floor(metres.northing / 100000));

  std::string digraph;
  const auto columnIndex = static_cast<std::uint64_t>(reduced);
  if (columnIndex < kColumnLetters.size()) digraph += kColumnLetters[columnIndex];
  const auto rowIndex = static_cast<std::uint64_t>((row + 5) % 20);
  if (rowIndex < kRowLetters.size()) digraph += kRowLetters[rowIndex];
  return digraph;
}

}  // namespace

std::string FindCoordinates::findUTMZoneWithLatAndLong(double latitude, double longitude) {
  return utmZoneText({latitude, longitude});
}

std::string FindCoordinates::findUTMEastingWithLatAndLong(double latitude, double longitude) {
  return utmMetresText(GridPosition(latitude, longitude).metres.easting);
}

std::string FindCoordinates::findUTMNorthingWithLatAndLong(double latitude, double longitude) {
  return utmMetresText(GridPosition(latitude, longitude).metres.northing);
}

std::string FindCoordinates::findMGRSZoneWithLatAndLong(double latitude, double longitude) {
  return mgrsZoneText({latitude, longitude});
}

std::string FindCoordinates::findMGRSZoneBandsWithLatAndLong(double latitude, double longitude) {
  return bandAndSquare("%@ %@%@", {latitude, longitude});
}

std::string FindCoordinates::findMGRSZoneLettersWithLatAndLong(double latitude, double longitude) {
  return bandAndSquare("%@%@%@", {latitude, longitude});
}

std::string FindCoordinates::findMGRSZoneForGridWithLatAndLong(double latitude, double longitude) {
  return findMGRSZoneLettersWithLatAndLong(latitude, longitude);
}

std::string FindCoordinates::findMGRSEastingWithLatAndLong(double latitude, double longitude) {
  return mgrsMetresText(GridPosition(latitude, longitude).metres.easting);
}

std::string FindCoordinates::findMGRSNorthingWithLatAndLong(double latitude, double longitude) {
  return mgrsMetresText(GridPosition(latitude, longitude).metres.northing);
}

std::optional<std::string>
FindCoordinates::findZoneLatitudeZoneDigraphZoneEastingAndNorthingFromLatitudeAndLongitude(
    std::int32_t& zone, std::string& latitudeZone, std::string& digraphZone, double& easting,
    double& northing, double latitude, double longitude) {
  const bool valid = latitude >= -90 && latitude <= 90 && longitude >= -180 && longitude <= 180;
  if (!valid) return std::nullopt;
  const Spheroid spheroid(DatumManager::sharedInstance().selectedEllipsoid());
  zone = truncatedToInt32(std::floor((longitude + 180) / 6)) + 1;
  const UTMPoint metres = textbookProjection(spheroid, latitude, longitude, zone);
  latitudeZone = CoordinateLookup::bandAt(latitude, latitude).value_or("");
  digraphZone = textbookDigraph(zone, metres);
  easting = metres.easting;
  northing = metres.northing;
  return stringWithFormat("%d%@ %@ %f %f", zone, latitudeZone, digraphZone, easting, northing);
}

}  // namespace wayfell
