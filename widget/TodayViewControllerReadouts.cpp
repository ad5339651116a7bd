// The texts of the rows: altitude and distance to the waypoint, set by a fix; the heading; and what
// is refreshed twice a second: speed or pace, time of arrival, track time and distance.

#include "coordinates/CoordinateDistance.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"
#include "platform/UnitFactors.h"
#include "settings/UserDefaults.h"
#include "units/ConvertTimeDistance.h"
#include "units/HoursMinutesSeconds.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr int kImperial = 0;
constexpr int kMetric = 1;
constexpr int kNautical = 2;

constexpr int kPaceOrSpeed = 0;
constexpr int kPace = 1;
constexpr int kSpeed = 2;

constexpr double kFastestPace = kTenMilesPerHour;
constexpr double kSlowestPace = 0.3;  // metres per second; below it the user stands still
// In miles, kilometres or nautical miles: shorter distances are given in metres or feet.
constexpr double kShortDistance = 0.25;
constexpr double kShortWaypointDistance = 0.24;

int secondsPerUnit(double speed, int units) {
  switch (units) {
    case kImperial:
      return truncatedToInt32(1 / (speed * (kMilesPerKilometre / 1000)));
    case kMetric:
      return truncatedToInt32(1 / (speed * (1.0 / 1000)));
    case kNautical:
      return truncatedToInt32(1 / (speed * kNauticalMilesPerMetre));
    default:
      return 0;
  }
}

FormattedText feetText(double distance) { return localizedText("%0.1f ft", feet(distance)); }

std::optional<FormattedText> trackDistanceText(double distance) {
  switch (UserDefaults::checkIntDefaults("units")) {
    case kImperial:
      if (miles(distance) < kShortDistance) return feetText(distance);
      return localizedText("%0.2f mi", miles(distance));
    case kMetric:
      if (kilometres(distance) < kShortDistance) {
        return localizedText("%0.1f m", kilometres(distance) * 1000);
      }
      return localizedText("%0.2f km", kilometres(distance));
    case kNautical:
      if (nauticalMiles(distance) < kShortDistance) return feetText(distance);
      return localizedText("%0.2f nm", nauticalMiles(distance));
    default:
      return std::nullopt;
  }
}

void copyText(const Outlet<UILabel>& from, const Outlet<UILabel>& to) {
  const auto label = from.lock();
  const auto copy = to.lock();
  if (!copy || (label && copy->text() == label->text())) return;
  copy->setText(label ? label->text() : std::nullopt);
}

}  // namespace

// Without a waypoint it is the distance to 0/0, in a row that is hidden.
void TodayViewController::showWaypointDistance() {
  waypointDistanceLabel.send(
      &UILabel::setText, ConvertTimeDistance::convertMetersToDistanceWithRoundingFactorDecimalPlace(
                             distanceToWaypoint(), kShortWaypointDistance, 2));
}

void TodayViewController::showAltitude() {
  const double altitude = currentLocation->altitude;
  // The nautical units have feet, too.
  const bool metric = UserDefaults::checkIntDefaults("units") == kMetric;
  altitudeLabel.send(&UILabel::setText, metric
                                            ? localizedText("%0.0f m", altitude)
                                            : localizedText("%0.0f ft", altitude * kFeetPerMetre));
}

void TodayViewController::showHeading(double heading) {
  const bool inMils = UserDefaults::checkIntDefaults("useMils") != 0;
  headingLabel.send(&UILabel::setText, inMils ? formattedText("%0.0f mils", mils(heading))
                                              : formattedText("%0.0f°", heading));
}

void TodayViewController::paceTimer3(const NSTimer* /*sender*/) {
  updateSpeed();
  calculateETAWithSpeed(velocityManager().averageSpeed());
  const double distance = defaults().doubleForKey("distance");
  const double time = defaults().doubleForKey("time");
  updateDistance(distance);
  updateTime(time);
}

void TodayViewController::updateSpeed() {
  const double speed = velocityManager().averageSpeed();
  const int choice = UserDefaults::checkIntDefaults("speed");
  // A speed that is not a number is neither, and leaves the row as it is.
  const bool slow = speed <= kFastestPace;
  const bool fast = speed > kFastestPace;
  if (choice == kSpeed || (choice == kPaceOrSpeed && fast)) {
    speedLabel.send(&UILabel::setText, convertMetersPerSecondToSpeed(speed));
    speedNameLabel.send(&UILabel::setText, localizedText("Speed"));
  } else if (choice == kPace || (choice == kPaceOrSpeed && slow)) {
    speedLabel.send(&UILabel::setText, convertMetersPerSecondToPace(speed));
    speedNameLabel.send(&UILabel::setText, localizedText("Pace"));
  }
}

std::optional<FormattedText> TodayViewController::convertMetersPerSecondToSpeed(double speed) {
  switch (UserDefaults::checkIntDefaults("units")) {
    case kImperial:
      return localizedText("%0.1f mph", speed * kMilesPerHour);
    case kMetric:
      return localizedText("%0.1f km/h", speed * kKilometresPerHour);
    case kNautical:
      return localizedText("%0.1f kts", speed * kKnots);
    default:
      return std::nullopt;
  }
}

std::optional<FormattedText> TodayViewController::convertMetersPerSecondToPace(double speed) {
  struct Formats {
    const char* withinTheHour;
    const char* withHours;
  };
  constexpr Formats kFormats[] = {{textKey("%02d:%02d /mi"), textKey("%02d:%02d:%02d /mi")},
                                  {textKey("%02d:%02d /km"), textKey("%02d:%02d:%02d /km")},
                                  {textKey("%02d:%02d /nm"), textKey("%02d:%02d:%02d /nm")}};
  const int units = UserDefaults::checkIntDefaults("units");
  if (units < kImperial || units > kNautical) return std::nullopt;
  const auto [hours, minutes, seconds] = speed < kSlowestPace
                                             ? HoursMinutesSeconds{}
                                             : hoursMinutesSeconds(secondsPerUnit(speed, units));
  const Formats& formats = kFormats[units];
  return hours < 1 ? localizedText(formats.withinTheHour, minutes, seconds)
                   : localizedText(formats.withHours, hours, minutes, seconds);
}

void TodayViewController::calculateETAWithSpeed(double speed) {
  if (!hasWaypoint) {
    etaLabel.send(&UILabel::setText, "");
    return;
  }
  const int seconds = wholeSeconds(distanceToWaypoint() / speed);
  const auto time = hoursMinutesSeconds(seconds);
  etaLabel.send(&UILabel::setText, seconds < 3600
                                       // Translators: minutes.
                                       ? localizedText("%d m", time.minutes)
                                       // Translators: hours and minutes.
                                       : localizedText("%d hr %d m", time.hours, time.minutes));
}

double TodayViewController::distanceToWaypoint() const {
  const CLLocationCoordinate2D position = currentCoordinate();
  return CoordinateDistance::getDoubleDistanceFromLatAndLongToOldLatAndOldLong(
      position.latitude, position.longitude, waypointLatitude, waypointLongitude);
}

void TodayViewController::updateDistance(double distance) {
  if (auto text = trackDistanceText(distance)) {
    distanceLabel.send(&UILabel::setText, std::move(text));
  }
  copyText(distanceLabel, miniDistanceLabel);
}

void TodayViewController::updateTime(double time) {
  const int total = wholeSeconds(time);
  const auto [hours, minutes, seconds] = hoursMinutesSeconds(total);
  timeLabel.send(&UILabel::setText, total < 3600
                                        ? formattedText("%02d:%02d", minutes, seconds)
                                        : formattedText("%d:%02d:%02d", hours, minutes, seconds));
  copyText(timeLabel, miniTimeLabel);
}

}  // namespace wayfell
