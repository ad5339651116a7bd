// UTM and MGRS references back to positions.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateLookup.h"
#include "coordinates/GridReference.h"
#include "coordinates/TransverseMercator.h"
#include "datums/DatumManager.h"
#include "platform/Numbers.h"
#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

// The index of a letter that its table lacks. It makes any reference meaningless.
constexpr double kNotFound = 9223372036854775807.0;

std::string upperCased(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return upper;
}

// The first match counts, so that row V is 0.
template <std::size_t size>
double positionIn(const std::array<std::string_view, size>& letters, std::string_view letter) {
  const auto found = std::find(letters.begin(), letters.end(), letter);
  return found == letters.end() ? kNotFound : static_cast<double>(found - letters.begin());
}

// What turns the second letter of a reference into hundreds of kilometres of easting.
double columnOf(std::int32_t zone, std::string_view zoneLetter) {
  constexpr std::array<double, 3> kColumnSets = {-16, 0, -8};
  const std::int32_t set = zone % 3;  // negative in zones that do not exist
  const std::string letters = upperCased(zoneLetter);
  const auto letter = std::string_view(letters).substr(std::min<std::size_t>(1, letters.size()), 1);
  return (set < 0 ? 0 : kColumnSets[static_cast<std::size_t>(set)]) +
         positionIn(kColumnLetters, letter);
}

double rowOf(std::string_view zoneLetter) {
  const std::string letters = upperCased(zoneLetter);
  const auto letter = std::string_view(letters).substr(letters.empty() ? 0 : letters.size() - 1);
  return positionIn(kRowLetters, letter);
}

}  // namespace

CLLocationCoordinate2D
ConvertCoordinates::convertUTMtoDecimalWithZoneAndEastingAndNorthingHemisphere(
    std::int32_t zone, double easting, double northing, std::int32_t southern) {
  const Spheroid spheroid(DatumManager::sharedInstance().selectedEllipsoid());
  return unprojected(spheroid, {easting, northing}, zone, southern != 0);
}

CLLocationCoordinate2D ConvertCoordinates::convertToDecimalWithZoneHemisphereAndEastingAndNorthing(
    std::int32_t zone, std::string_view hemisphere, double easting, double northing) {
  const std::int32_t southern = hemisphere == "north" ? 0 : 1;
  const CLLocationCoordinate2D selected =
      convertUTMtoDecimalWithZoneAndEastingAndNorthingHemisphere(zone, easting, northing, southern);
  return DatumManager::sharedInstance().defaultFromSelected(selected.latitude, selected.longitude);
}

CLLocationCoordinate2D
ConvertCoordinates::convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(
    std::int32_t zone, std::string_view zoneLetter, double easting, double northing) {
  constexpr double kRowCycle = 2000000;  // metres of northing after which rows repeat
  const double southernEdge = CoordinateLookup::findLatDegrees(zoneLetter);
  const double least =
      findNorthingWithLatAndZoneAndZoneLetterAndEasting(southernEdge, zone, zoneLetter, easting);

  const double firstRow = zone % 2 != 0 ? 1 : 6;  // of the cycle: odd zones begin at A, even at F
  double base = static_cast<double>(truncatedToInt64(least / kRowCycle)) * kRowCycle +
                (rowOf(zoneLetter) - firstRow) * 100000;
  if (base + northing < least) base += kRowCycle;

  const double fullEasting = columnOf(zone, zoneLetter) * 100000 + easting;
  const double fullNorthing = base + (base < 0 ? kSouthernFalseNorthing : 0) + northing;
  return convertToDecimalWithZoneHemisphereAndEastingAndNorthing(
      zone, southernEdge >= 0 ? "north" : "south", fullEasting, fullNorthing);
}

double ConvertCoordinates::findNorthingWithLatAndZoneAndZoneLetterAndEasting(
    double latitude, std::int32_t zone, std::string_view zoneLetter, double easting) {
  constexpr double kMinutesPerDegree = 60;
  const Spheroid spheroid(DatumManager::sharedInstance().selectedEllipsoid());
  const double phi = latitude * kPi / 180;
  const double metresPerDegree = std::cos(phi) * kMinutesPerDegree * kMetresPerNauticalMile;
  const double p = (easting / metresPerDegree +
                    (columnOf(zone, zoneLetter) * 100000 - kFalseEasting) / metresPerDegree) *
                   kPi / 180;
  const double northing = northingOf(spheroid, phi, p);
  return latitude < 0 ? northing + kSouthernFalseNorthing : northing;
}

}  // namespace wayfell
