#include "hosts/places/PositionText.h"

#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateLookup.h"
#include "datums/DatumManager.h"
#include "hosts/text/JsonWriter.h"
#include "platform/NSString.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

constexpr std::size_t kDecimal = 0;
constexpr std::size_t kMGRS = 3;
constexpr std::size_t kUTM = 4;

// Only near the poles can a text fail to be a position; everywhere else this costs nothing.
bool showsPosition(const CLLocationCoordinate2D& position, std::size_t format) {
  constexpr double kNearPole = 89;  // degrees; no datum shifts a latitude by one
  if (std::abs(position.latitude) < kNearPole) return true;
  const auto selected =
      DatumManager::sharedInstance().selectedFromDefault(position.latitude, position.longitude);
  if (!(std::abs(selected.longitude) <= 360)) return false;
  const bool withBand =
      format == kMGRS || (format == kUTM && UserDefaults::checkIntDefaults("utmType") == 1);
  return !withBand || CoordinateLookup::bandAt(position.latitude, selected.latitude);
}

}  // namespace

bool isPosition(const CLLocationCoordinate2D& position) {
  return std::abs(position.latitude) <= kGreatestLatitude &&
         std::abs(position.longitude) <= kGreatestLongitude;
}

void checkDegrees(double degrees, double greatest, std::string_view name) {
  if (std::abs(degrees) <= greatest) return;
  throw std::invalid_argument(std::string(name) + ' ' + shortestText(degrees) + " is beyond " +
                              shortestText(std::copysign(greatest, degrees)));
}

std::optional<std::string> positionText(const CLLocationCoordinate2D& position,
                                        std::size_t format) {
  if (!showsPosition(position, format)) return std::nullopt;
  return ConvertCoordinates::convertLatAndLongWithCoordinateUnits(
      position.latitude, position.longitude, static_cast<std::int64_t>(format));
}

std::string plainPosition(const CLLocationCoordinate2D& position) {
  const auto [latitude, longitude] = position;
  return ConvertCoordinates::updateLatitudeWithCoordinateIndexLatitudeAndLongitude(
             kDecimal, latitude, longitude)
             .value_or("") +
         ' ' +
         ConvertCoordinates::updateLongitudeWithCoordinateIndexLatitudeAndLongitude(
             kDecimal, latitude, longitude)
             .value_or("");
}

std::string positionJson(const CLLocationCoordinate2D& position) {
  JsonWriter json;
  json.beginObject().member("latitude", position.latitude);
  return json.member("longitude", position.longitude).endObject().text();
}

}  // namespace wayfell
