// What is refreshed twice a second: speed or pace, time of arrival, track time and distance.

#include "coordinates/CoordinateDistance.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"
#include "settings/UserDefaults.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr int kImperial = 0;
constexpr int kMetric = 1;
constexpr int kNautical = 2;

constexpr int kPaceOrSpeed = 0;
constexpr int kPace = 1;
constexpr int kSpeed = 2;

constexpr double kFastestPace = 4.4704;  // metres per second: 10 miles per hour
constexpr double kSlowestPace = 0.3;     // metres per second; below it the user stands still
constexpr double kShortDistance = 0.25;  // of the main unit

constexpr double kMilesPerKilometre = 0.621371192;
constexpr double kMilesPerMetre = 0.000621371192;
constexpr double kNauticalMilesPerMetre = 0.000539956803;
constexpr double kFeetPerMile = 5280;

struct HoursMinutesSeconds {
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
};

HoursMinutesSeconds split(int seconds) {
  return {seconds / 3600, (seconds % 3600) / 60, seconds % 60};
}

// Whole seconds by way of text, on purpose: what is not a number, or infinite, becomes 0.
int wholeSeconds(double seconds) { return intValue(fixedText(seconds, 6)); }

int secondsPerUnit(double speed, int units) {
  switch (units) {
    case kImperial:
      return truncatedToInt32(1 / (speed * kMilesPerMetre));
    case kMetric:
      return truncatedToInt32(1 / (speed * (1.0 / 1000)));
    case kNautical:
      return truncatedToInt32(1 / (speed * kNauticalMilesPerMetre));
    default:
      return 0;
  }
}

// Through kilometres and miles also for the nautical units: kept so.
std::string feetText(double distance) {
  return localizedStringWithFormat("%0.1f ft", distance / 1000 * kMilesPerKilometre * kFeetPerMile);
}

std::optional<std::string> trackDistanceText(double distance) {
  switch (UserDefaults::checkIntDefaults("units")) {
    case kImperial: {
      const double miles = distance / 1000 * kMilesPerKilometre;
      return miles < kShortDistance ? feetText(distance)
                                    : localizedStringWithFormat("%0.2f mi", miles);
    }
    case kMetric: {
      const double kilometres = distance / 1000;
      return kilometres < kShortDistance ? localizedStringWithFormat("%0.1f m", kilometres * 1000)
                                         : localizedStringWithFormat("%0.2f km", kilometres);
    }
    case kNautical: {
      const double miles = distance * kNauticalMilesPerMetre;
      return miles < kShortDistance ? feetText(distance)
                                    : localizedStringWithFormat("%0.2f nm", miles);
    }
    default:
      return std::nullopt;
  }
}

void copyText(const Outlet<UILabel>& from, const Outlet<UILabel>& to) {
  const auto label = from.lock();
  to.send(&UILabel::setText, label ? label->text() : std::nullopt);
}

}  // namespace

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
    speedNameLabel.send(&UILabel::setText, std::string(localized("Speed")));
  } else if (choice == kPace || (choice == kPaceOrSpeed && slow)) {
    speedLabel.send(&UILabel::setText, convertMetersPerSecondToPace(speed));
    speedNameLabel.send(&UILabel::setText, std::string(localized("Pace")));
  }
}

std::optional<std::string> TodayViewController::convertMetersPerSecondToSpeed(double speed) {
  switch (UserDefaults::checkIntDefaults("units")) {
    case kImperial:
      return localizedStringWithFormat("%0.1f mph", speed * 2.2369363);
    case kMetric:
      return localizedStringWithFormat("%0.1f km/h", speed * 3.6);
    case kNautical:
      return localizedStringWithFormat("%0.1f kts", speed * 1.94384449);
    default:
      return std::nullopt;
  }
}

std::optional<std::string> TodayViewController::convertMetersPerSecondToPace(double speed) {
  struct Formats {
    const char* withinTheHour;
    const char* withHours;
  };
  constexpr Formats kFormats[] = {{textKey("%02d:%02d /mi"), textKey("%02d:%02d:%02d /mi")},
                                  {textKey("%02d:%02d /km"), textKey("%02d:%02d:%02d /km")},
                                  {textKey("%02d:%02d /nm"), textKey("%02d:%02d:%02d /nm")}};
  const int units = UserDefaults::checkIntDefaults("units");
  if (units < kImperial || units > kNautical) return std::nullopt;
  const auto [hours, minutes, seconds] =
      speed < kSlowestPace ? HoursMinutesSeconds{} : split(secondsPerUnit(speed, units));
  const Formats& formats = kFormats[units];
  return hours < 1 ? localizedStringWithFormat(formats.withinTheHour, minutes, seconds)
                   : localizedStringWithFormat(formats.withHours, hours, minutes, seconds);
}

void TodayViewController::calculateETAWithSpeed(double speed) {
  if (!hasWaypoint) {
    etaLabel.send(&UILabel::setText, "");
    return;
  }
  const CLLocationCoordinate2D position = currentCoordinate();
  const double metres = CoordinateDistance::getDoubleDistanceFromLatAndLongToOldLatAndOldLong(
      position.latitude, position.longitude, waypointLatitude, waypointLongitude);
  const int seconds = wholeSeconds(metres / speed);
  const auto time = split(seconds);
  etaLabel.send(&UILabel::setText,
                seconds < 3600
                    // Translators: minutes.
                    ? localizedStringWithFormat("%d m", time.minutes)
                    // Translators: hours and minutes.
                    : localizedStringWithFormat("%d hr %d m", time.hours, time.minutes));
}

void TodayViewController::updateDistance(double distance) {
  if (auto text = trackDistanceText(distance)) {
    distanceLabel.send(&UILabel::setText, std::move(text));
  }
  copyText(distanceLabel, miniDistanceLabel);
}

void TodayViewController::updateTime(double time) {
  const int total = wholeSeconds(time);
  const auto [hours, minutes, seconds] = split(total);
  timeLabel.send(&UILabel::setText,
                 total < 3600 ? stringWithFormat("%02d:%02d", minutes, seconds)
                              : stringWithFormat("%d:%02d:%02d", hours, minutes, seconds));
  copyText(timeLabel, miniTimeLabel);
}

}  // namespace wayfell
