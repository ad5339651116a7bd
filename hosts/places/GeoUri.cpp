#include "hosts/places/GeoUri.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "hosts/places/PositionText.h"
#include "hosts/text/Characters.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr std::string_view kScheme = "GEO:";

[[noreturn]] void refuse(const std::string& why) {
  throw std::invalid_argument(why + "; write geo:46.98,7.94, for example");
}

// Takes what is before the next mark, and the mark.
std::string_view takeUpTo(char mark, std::string_view& rest) {
  const std::size_t length = std::min(rest.find(mark), rest.size());
  const std::string_view taken = rest.substr(0, length);
  rest.remove_prefix(std::min(length + 1, rest.size()));
  return taken;
}

// Digits, perhaps with a minus before them and a fraction.
double numberOf(std::string_view text, const std::string& name) {
  std::string_view rest = text.substr(text.starts_with('-') ? 1 : 0);
  const bool hasFraction = rest.find('.') != std::string_view::npos;
  const std::string_view whole = takeUpTo('.', rest);
  const auto areDigits = [](std::string_view digits) {
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
  };
  if (!areDigits(whole) || (hasFraction && !areDigits(rest))) {
    refuse(inQuotes(text) + " is no " + name + " of a geo URI");
  }
  return doubleValue(text) + 0.0;  // no zero with a sign
}

double degreesOf(std::string_view text, double greatest, const std::string& name) {
  const double degrees = numberOf(text, name);
  checkDegrees(degrees, greatest, name);
  return degrees;
}

void checkParameter(std::string_view parameter) {
  const std::string name = upperCased(takeUpTo('=', parameter));
  if (name.empty()) refuse("a parameter of the geo URI has no name");
  if (name == "CRS" && upperCased(parameter) != "WGS84") {
    refuse("the coordinate system " + inQuotes(parameter) + " is not known, only wgs84");
  }
}

}  // namespace

bool isGeoUri(std::string_view text) {
  return upperCased(text.substr(0, kScheme.size())) == kScheme;
}

CLLocationCoordinate2D positionOfGeoUri(std::string_view uri) {
  uri.remove_prefix(kScheme.size());
  uri = uri.substr(0, uri.find('?'));  // phones write how much of a map to show there
  const bool hasParameters = uri.find(';') != std::string_view::npos;
  std::string_view coordinates = takeUpTo(';', uri);
  const auto commas = std::count(coordinates.begin(), coordinates.end(), ',');
  if (commas < 1 || commas > 2) {
    refuse(inQuotes(coordinates) + " is no latitude and longitude of a geo URI");
  }
  const double latitude = degreesOf(takeUpTo(',', coordinates), kGreatestLatitude, "latitude");
  const double longitude = degreesOf(takeUpTo(',', coordinates), kGreatestLongitude, "longitude");
  if (commas == 2) numberOf(coordinates, "altitude");
  if (hasParameters) {
    do checkParameter(takeUpTo(';', uri));
    while (!uri.empty());
  }
  return {latitude, longitude};
}

}  // namespace wayfell
