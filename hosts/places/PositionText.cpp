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

struct Axis {
  std::string_view name;
  double largest;  // degrees
  char positive;   // letters, capitals
  char negative;
};
constexpr Axis kLatitude = {"latitude", kGreatestLatitude, 'N', 'S'};
constexpr Axis kLongitude = {"longitude", kGreatestLongitude, 'E', 'W'};

[[noreturn]] void refuse(const std::string& why) { throw std::invalid_argument(why); }

double takeDegrees(TextScanner& scanner, const Axis& axis) {
  const std::string name(axis.name);
  if (scanner.atEnd()) refuse("a " + name + " is missing");
  const std::string_view word = scanner.word();
  const auto number = scanner.number();
  if (!number) refuse(inQuotes(word) + " is not a " + name);
  double degrees = *number;

  scanner.take("°");
  if (const std::string_view letters = scanner.letters(); !letters.empty()) {
    const char letter = upperCased(letters).front();
    if (letters.size() > 1 || (letter != axis.positive && letter != axis.negative)) {
      refuse(inQuotes(letters) + " after a " + name);
    }
    if (std::signbit(degrees)) refuse("a " + name + " with both a sign and a letter");
    if (letter == axis.negative) degrees = -degrees;
  }
  checkDegrees(degrees, axis.largest, name);
  return degrees;
}

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

CLLocationCoordinate2D takePosition(TextScanner& scanner) {
  CLLocationCoordinate2D position;
  position.latitude = takeDegrees(scanner, kLatitude);
  scanner.separator();
  position.longitude = takeDegrees(scanner, kLongitude);
  return position;
}

CLLocationCoordinate2D positionOfWords(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += word + ' ';
  TextScanner scanner(text);
  const CLLocationCoordinate2D position = takePosition(scanner);
  if (!scanner.atEnd()) refuse(inQuotes(scanner.word()) + " is too much");
  return position;
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
