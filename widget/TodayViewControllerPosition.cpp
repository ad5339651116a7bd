// The position, in the row and laid out format by format.

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/FindCoordinates.h"
#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr double kPositionFontSize = 18;

void emphasize(const Outlet<UILabel>& label) {
  label.send(&UILabel::setFont, UIFont::boldSystemFontOfSize(kPositionFontSize));
  label.send(&UILabel::setTextAlignment, NSTextAlignment::center);
}

std::string degreesText(double latitude, double longitude) {
  const DatumManager& datums = DatumManager::sharedInstance();
  return stringWithFormat("%0.6f\n%0.6f",
                          datums.selectedLatitudeFromDefaultLatAndLong(latitude, longitude),
                          datums.selectedLongitudeFromDefaultLatAndLong(latitude, longitude));
}

// The leading blanks of the formats are part of the layout.
std::string positionText(int units, double latitude, double longitude) {
  using Convert = ConvertCoordinates;
  switch (units) {
    case 0:
      return degreesText(latitude, longitude);
    case 1:
      return stringWithFormat(
          "   %@\n   %@", Convert::convertDecimalToDMAndLongitudeForLatLong(latitude, longitude, 0),
          Convert::convertDecimalToDMAndLongitudeForLatLong(latitude, longitude, 1));
    case 2:
      return stringWithFormat(
          "   %@\n   %@",
          Convert::convertDecimalToDMSAndLongitudeForLatLong(latitude, longitude, 0),
          Convert::convertDecimalToDMSAndLongitudeForLatLong(latitude, longitude, 1));
    default:
      return stringWithFormat("   %@", Convert::convertDecimalToMGRSAndLong(latitude, longitude));
  }
}

}  // namespace

void TodayViewController::showPosition() {
  const CLLocationCoordinate2D position = currentCoordinate();
  userCoordinateLabel.send(&UILabel::setText, ConvertCoordinates::convertLatAndLong(
                                                  position.latitude, position.longitude));
}

void TodayViewController::updateCurrentLocationDisplayWithUnits(int units) {
  constexpr int kMGRS = 3;
  constexpr int kUTM = 4;
  if (units < 0 || units > kUTM) return;
  const auto [latitude, longitude] = currentCoordinate();
  latLongLabel.send(&UIView::setHidden, units >= kMGRS);
  if (units != kUTM) {
    utmZoneLabel.send(&UILabel::setText, "");
    emphasize(userCoordinateLabel);
    userCoordinateLabel.send(&UILabel::setText, positionText(units, latitude, longitude));
    return;
  }
  // In UTM the two labels change roles: the zone line takes the easting and northing, and the
  // position's line the zone.
  emphasize(utmZoneLabel);
  utmZoneLabel.send(
      &UILabel::setText,
      localizedStringWithFormat(
          "    %@mE\n    %@mN", FindCoordinates::findUTMEastingWithLatAndLong(latitude, longitude),
          FindCoordinates::findUTMNorthingWithLatAndLong(latitude, longitude)));
  userCoordinateLabel.send(&UILabel::setTextAlignment, NSTextAlignment::left);
  userCoordinateLabel.send(&UILabel::setText,
                           FindCoordinates::findUTMZoneWithLatAndLong(latitude, longitude));
}

}  // namespace wayfell
