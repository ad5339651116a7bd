// Positions as texts. References back to positions are in ConvertCoordinatesFromGridReference.cpp.
#include "coordinates/ConvertCoordinates.h"

#include <cmath>

#include "coordinates/CoordinateDistance.h"
#include "coordinates/FindCoordinates.h"
#include "coordinates/GridReference.h"
#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"
#include "settings/StoredInteger.h"

namespace wayfell {
namespace {

enum Format : std::int64_t { kDecimal, kDM, kDMS, kMGRS, kUTM };

// Which coordinate a text is of.
constexpr std::int32_t kLatitude = 0;
constexpr std::int32_t kLongitude = 1;

using Text = std::optional<FormattedText>;
using FieldText = std::optional<std::string>;

std::int64_t usersFormat() { return storedInteger("coordinateUnits"); }

CLLocationCoordinate2D selectedFromDefault(double latitude, double longitude) {
  return DatumManager::sharedInstance().selectedFromDefault(latitude, longitude);
}

// Positions on the equator and on the prime meridian read south and west.
FormattedText latitudeLetter(double latitude) {
  return localizedText(latitude > 0 ? textKey("N") : textKey("S"));
}
FormattedText longitudeLetter(double longitude) {
  return localizedText(longitude > 0 ? textKey("E") : textKey("W"));
}

// One coordinate without its sign, taken apart.
struct Sexagesimal {
  double degrees = 0;  // whole
  double minutes = 0;
  double wholeMinutes = 0;
  double seconds = 0;
  FormattedText letter;
};

// Every stage is rounded to six decimals by way of text: 45.999999999 reads 46° 0' 0.00''.
double throughText(double value) { return doubleValue(fixedText(value, 6)); }

// The whole part of a number that has been through text.
double wholePart(double value) { return lowInt32(truncatedToInt64(value)); }

Sexagesimal sexagesimal(const CLLocationCoordinate2D& selected, std::int32_t which) {
  const double value =
      throughText(std::abs(which == kLongitude ? selected.longitude : selected.latitude));
  Sexagesimal parts;
  parts.degrees = wholePart(value);
  parts.minutes = throughText((value - parts.degrees) * 60);
  parts.wholeMinutes = wholePart(parts.minutes);
  parts.seconds = throughText((parts.minutes - parts.wholeMinutes) * 60);
  parts.letter =
      which != kLatitude ? longitudeLetter(selected.longitude) : latitudeLetter(selected.latitude);
  return parts;
}

FormattedText dmText(const CLLocationCoordinate2D& selected, std::int32_t which) {
  const Sexagesimal parts = sexagesimal(selected, which);
  return localizedText("%0.0f° %0.4f' %@", parts.degrees, parts.minutes, parts.letter);
}

FormattedText dmsText(const CLLocationCoordinate2D& selected, std::int32_t which) {
  const Sexagesimal parts = sexagesimal(selected, which);
  return localizedText("%0.0f° %0.0f' %0.2f'' %@", parts.degrees, parts.wholeMinutes, parts.seconds,
                       parts.letter);
}

// A coordinate that is not a number reads north or east in this format, south or west in the
// others.
FormattedText decimalText(const CLLocationCoordinate2D& selected) {
  return localizedText("%0.5f°%@, %0.5f°%@", std::abs(selected.latitude),
                       localizedText(selected.latitude <= 0 ? textKey("S") : textKey("N")),
                       std::abs(selected.longitude),
                       localizedText(selected.longitude <= 0 ? textKey("W") : textKey("E")));
}

FormattedText both(FormattedText (*textOf)(const CLLocationCoordinate2D&, std::int32_t),
                   const CLLocationCoordinate2D& selected) {
  return localizedText("%@, %@", textOf(selected, kLatitude), textOf(selected, kLongitude));
}

Text wholePosition(double latitude, double longitude, std::int64_t format) {
  switch (format) {
    case kDecimal:
      return decimalText(selectedFromDefault(latitude, longitude));
    case kDM:
      return both(dmText, selectedFromDefault(latitude, longitude));
    case kDMS:
      return both(dmsText, selectedFromDefault(latitude, longitude));
    case kMGRS:
      return ConvertCoordinates::convertDecimalToMGRSAndLong(latitude, longitude);
    case kUTM:
      return ConvertCoordinates::convertDecimalToUTMAndLong(latitude, longitude);
    default:
      return std::nullopt;
  }
}

// A latitude or longitude in the formats that show one.
FieldText degreesField(std::int64_t format, double latitude, double longitude, std::int32_t which) {
  switch (format) {
    case kDecimal:
      return stringWithFormat("%0.8f", which == kLongitude ? longitude : latitude);
    case kDM:
      return dmText(selectedFromDefault(latitude, longitude), which);
    case kDMS:
      return dmsText(selectedFromDefault(latitude, longitude), which);
    default:
      return std::nullopt;
  }
}

using Field = std::string(double latitude, double longitude);

// A piece of a grid reference in the formats that show one.
FieldText gridField(std::int64_t format, double latitude, double longitude, Field* mgrs,
                    Field* utm) {
  if (format == kMGRS) return mgrs(latitude, longitude);
  if (format == kUTM) return utm(latitude, longitude);
  return std::nullopt;
}

}  // namespace

Text ConvertCoordinates::convertLatAndLong(double latitude, double longitude) {
  const bool inRange = latitude >= -90 && latitude <= 90 && longitude >= -180 && longitude <= 180;
  return inRange ? wholePosition(latitude, longitude, usersFormat()) : std::nullopt;
}

Text ConvertCoordinates::convertLatAndLongWithCoordinateUnits(double latitude, double longitude,
                                                              std::int64_t index) {
  const bool inRange =
      longitude > -180.1 && longitude < 180.1 && latitude > -90.1 && latitude < 90.1;
  return inRange ? wholePosition(latitude, longitude, index) : std::nullopt;
}

FormattedText ConvertCoordinates::convertDecimalToUTMAndLong(double latitude, double longitude) {
  const GridPosition position(latitude, longitude);
  return localizedText("%@ %@mE %@mN", utmZoneText(position),
                       utmMetresText(position.metres.easting),
                       utmMetresText(position.metres.northing));
}

FormattedText ConvertCoordinates::convertDecimalToMGRSAndLong(double latitude, double longitude) {
  const GridPosition position(latitude, longitude);
  return formattedText("%@ %@ %@", mgrsZoneText(position), mgrsMetresText(position.metres.easting),
                       mgrsMetresText(position.metres.northing));
}

FormattedText ConvertCoordinates::convertDecimalToDMAndLongitudeForLatLong(
    double latitude, double longitude, std::int32_t forLatLong) {
  return dmText(selectedFromDefault(latitude, longitude), forLatLong);
}

FormattedText ConvertCoordinates::convertDecimalToDMSAndLongitudeForLatLong(
    double latitude, double longitude, std::int32_t forLatLong) {
  return dmsText(selectedFromDefault(latitude, longitude), forLatLong);
}

FieldText ConvertCoordinates::updateLatitudeWithCoordinateIndexLatitudeAndLongitude(
    std::int64_t index, double latitude, double longitude) {
  return degreesField(index, latitude, longitude, kLatitude);
}

FieldText ConvertCoordinates::updateLongitudeWithCoordinateIndexLatitudeAndLongitude(
    std::int64_t index, double latitude, double longitude) {
  return degreesField(index, latitude, longitude, kLongitude);
}

FieldText ConvertCoordinates::updateZoneWithCoordinateIndexLatitudeAndLongitude(std::int64_t index,
                                                                                double latitude,
                                                                                double longitude) {
  return gridField(index, latitude, longitude, FindCoordinates::findMGRSZoneWithLatAndLong,
                   FindCoordinates::findUTMZoneWithLatAndLong);
}

FieldText ConvertCoordinates::updateEastingWithCoordinateIndexLatitudeAndLongitude(
    std::int64_t index, double latitude, double longitude) {
  return gridField(index, latitude, longitude, FindCoordinates::findMGRSEastingWithLatAndLong,
                   FindCoordinates::findUTMEastingWithLatAndLong);
}

FieldText ConvertCoordinates::updateNorthingWithCoordinateIndexLatitudeAndLongitude(
    std::int64_t index, double latitude, double longitude) {
  return gridField(index, latitude, longitude, FindCoordinates::findMGRSNorthingWithLatAndLong,
                   FindCoordinates::findUTMNorthingWithLatAndLong);
}

FieldText ConvertCoordinates::updateLatitudeWithDefaultCoordinateIndexLatitudeAndLongitude(
    double latitude, double longitude) {
  return updateLatitudeWithCoordinateIndexLatitudeAndLongitude(usersFormat(), latitude, longitude);
}

FieldText ConvertCoordinates::updateLongitudeWithDefaultCoordinateIndexLatitudeAndLongitude(
    double latitude, double longitude) {
  return updateLongitudeWithCoordinateIndexLatitudeAndLongitude(usersFormat(), latitude, longitude);
}

FieldText ConvertCoordinates::updateZoneWithDefaultCoordinateIndexLatitudeAndLongitude(
    double latitude, double longitude) {
  return updateZoneWithCoordinateIndexLatitudeAndLongitude(usersFormat(), latitude, longitude);
}

FieldText ConvertCoordinates::updateEastingWithDefaultCoordinateIndexLatitudeAndLongitude(
    double latitude, double longitude) {
  return updateEastingWithCoordinateIndexLatitudeAndLongitude(usersFormat(), latitude, longitude);
}

FieldText ConvertCoordinates::updateNorthingWithDefaultCoordinateIndexLatitudeAndLongitude(
    double latitude, double longitude) {
  return updateNorthingWithCoordinateIndexLatitudeAndLongitude(usersFormat(), latitude, longitude);
}

CLLocationCoordinate2D ConvertCoordinates::findCoordinateFromAngleDistanceAndLocation(
    double angle, double distance, const CLLocationCoordinate2D& location) {
  return CoordinateDistance::destination(location, angle, distance);
}

}  // namespace wayfell
