#include "coordinates/CoordinateLookup.h"

#include <array>

#include "coordinates/TransverseMercator.h"
#include "datums/DatumManager.h"
#include "platform/Numbers.h"

namespace wayfell {
namespace {

struct Band {
  char letter;
  double south;  // degrees; inclusive
  double north;  // exclusive
};

constexpr std::array<Band, 22> kBands = {{
    {'A', -90, -84}, {'C', -84, -72}, {'D', -72, -64}, {'E', -64, -56}, {'F', -56, -48},
    {'G', -48, -40}, {'H', -40, -32}, {'J', -32, -24}, {'K', -24, -16}, {'L', -16, -8},
    {'M', -8, 0},    {'N', 0, 8},     {'P', 8, 16},    {'Q', 16, 24},   {'R', 24, 32},
    {'S', 32, 40},   {'T', 40, 48},   {'U', 48, 56},   {'V', 56, 64},   {'W', 64, 72},
    {'X', 72, 84},   {'Z', 84, 90},
}};

std::string_view nameOf(const Band& band) { return {&band.letter, 1}; }

// Any longitude has a zone: those that no zone number can express wrap around.
std::int32_t zoneFrom(double sixDegrees, std::int32_t first) {
  const std::int64_t whole = lowInt32(truncatedToInt64(sixDegrees));
  return lowInt32(whole + first);
}

}  // namespace

std::int32_t CoordinateLookup::zoneAt(double selectedLongitude) {
  if (selectedLongitude > 0) return zoneFrom(selectedLongitude / 6, 31);
  return zoneFrom((selectedLongitude + 180) / 6, 1);
}

std::optional<std::string_view> CoordinateLookup::bandAt(double defaultLatitude,
                                                         double selectedLatitude) {
  const Band& polar = kBands.front();
  if (defaultLatitude < polar.north) return nameOf(polar);
  for (std::size_t i = 1; i < kBands.size(); ++i) {
    if (selectedLatitude < kBands[i].north) return nameOf(kBands[i]);
  }
  return std::nullopt;
}

UTMPoint CoordinateLookup::metresAt(const CLLocationCoordinate2D& selected, std::int32_t zone) {
  return projected(Spheroid(DatumManager::sharedInstance().selectedEllipsoid()), selected, zone);
}

std::int32_t CoordinateLookup::findLongZonesWithLat(double longitude, double latitude) {
  return zoneAt(DatumManager::sharedInstance().selectedFromDefault(latitude, longitude).longitude);
}

std::optional<std::string> CoordinateLookup::findLatZonesWithLong(double latitude,
                                                                  double longitude) {
  const auto selected = DatumManager::sharedInstance().selectedFromDefault(latitude, longitude);
  const auto band = bandAt(latitude, selected.latitude);
  return band ? std::optional<std::string>(*band) : std::nullopt;
}

double CoordinateLookup::findLatDegrees(std::string_view letter) {
  if (letter.empty()) return 0;
  const char first = letter.front();
  const char upper = first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
  for (const Band& band : kBands) {
    if (band.letter == upper) return band.south;
  }
  return 0;
}

UTMPoint CoordinateLookup::findEastingandNorthingWithLatAndLongAndZone(double latitude,
                                                                       double longitude,
                                                                       std::int32_t zone) {
  return metresAt(DatumManager::sharedInstance().selectedFromDefault(latitude, longitude), zone);
}

}  // namespace wayfell
