// Fixes and headings: what is let in, and what each changes.

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateDistance.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "settings/UserDefaults.h"
#include "units/ConvertTimeDistance.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr double kFeetPerMetre = 3.2808399;
constexpr int kMetric = 1;

// Fixes worse than this teach nothing about what accuracy to expect.
constexpr double kLearnedAccuracy = 200.0;  // metres
// Better fixes than these are accepted whatever the others are like.
constexpr double kGoodHorizontalAccuracy = 50.0;  // metres
constexpr double kGoodVerticalAccuracy = 70.0;    // metres
// How much worse than the average a fix may be.
constexpr double kAccuracyMargin = 1.0;  // metres

constexpr double kAddressSeconds = 60.0;

constexpr double kTapePointsPerTurn = -300;  // the tape moves left as the heading grows
constexpr double kTapeTop = -3.0;
constexpr CGSize kTapeSize{430.0, 26.0};

double chosenHeading(const CLHeading& heading) {
  // 0 takes the true heading even when it is invalid, the numbers above 1 do not: kept so.
  switch (UserDefaults::checkIntDefaults("compassHeading")) {
    case 0:
      return heading.trueHeading;
    case 1:
      return heading.magneticHeading;
    default:
      return heading.trueHeading > 0 ? heading.trueHeading : heading.magneticHeading;
  }
}

}  // namespace

CLLocationManager& TodayViewController::locationManager() {
  if (!locationManager_) {
    locationManager_ = std::make_unique<CLLocationManager>();
    locationManager_->delegate = weak_from_this();
    locationManager_->activityType = CLActivityType::other;
    locationManager_->desiredAccuracy = kCLLocationAccuracyBest;
    locationManager_->allowsBackgroundLocationUpdates = false;
    // Only here: a later appearance does not start the headings again. Kept so.
    if (CLLocationManager::headingAvailable()) locationManager_->startUpdatingHeading();
  }
  return *locationManager_;
}

void TodayViewController::locationManagerDidUpdateLocations(
    CLLocationManager& manager, const std::vector<CLLocation>& locations) {
  if (!oldLocation && !locations.empty()) oldLocation = locations.front();
  for (const CLLocation& location : locations) {
    locationManagerDidUpdateToNewLocationFromLocation(manager, location, oldLocation);
    oldLocation = location;
  }
}

void TodayViewController::locationManagerDidUpdateToNewLocationFromLocation(
    CLLocationManager& /*manager*/, const CLLocation& newLocation,
    const std::optional<CLLocation>& /*oldLocation*/) {
  if (newLocation.horizontalAccuracy < kLearnedAccuracy) accuracyTrack().addLocation(newLocation);
  if (!isAccurateEnough(newLocation)) return;

  currentLocation = newLocation;
  showWaypointDistance();
  showPosition();
  velocityManager().updateSpeedWithLocation(newLocation);
  showAltitude();
  if (followsCourse()) {
    setMapCompassDisplaysWithHeading(newLocation.course);
    turnArrow(newLocation.course);
  }
  refreshAddressIfDue();
  lastCurrentLocation = newLocation;
}

bool TodayViewController::isAccurateEnough(const CLLocation& fix) {
  const double horizontal = fix.horizontalAccuracy;
  const double vertical = fix.verticalAccuracy;
  const AccuracyTrack& track = accuracyTrack();
  // A negative vertical accuracy, an invalid altitude, passes.
  return horizontal > 0 &&
         (horizontal <= kGoodHorizontalAccuracy ||
          horizontal <= track.averageHorizontalAccuracy() + kAccuracyMargin) &&
         (vertical <= kGoodVerticalAccuracy ||
          vertical <= track.averageVerticalAccuracy() + kAccuracyMargin);
}

// Also without a waypoint, when a hidden row then tells the distance to 0/0.
void TodayViewController::showWaypointDistance() {
  const CLLocationCoordinate2D position = currentCoordinate();
  const double metres = CoordinateDistance::getDoubleDistanceFromLatAndLongToOldLatAndOldLong(
      position.latitude, position.longitude, waypointLatitude, waypointLongitude);
  waypointDistanceLabel.send(
      &UILabel::setText,
      ConvertTimeDistance::convertMetersToDistanceWithRoundingFactorDecimalPlace(metres, 0.24, 2));
}

void TodayViewController::showPosition() {
  const CLLocationCoordinate2D position = currentCoordinate();
  userCoordinateLabel.send(&UILabel::setText, ConvertCoordinates::convertLatAndLong(
                                                  position.latitude, position.longitude));
}

void TodayViewController::showAltitude() {
  const double altitude = currentLocation->altitude;
  // Feet for all but metric, nautical included: kept so.
  const bool metric = UserDefaults::checkIntDefaults("units") == kMetric;
  altitudeLabel.send(&UILabel::setText,
                     metric ? localizedStringWithFormat("%0.0f m", altitude)
                            : localizedStringWithFormat("%0.0f ft", altitude * kFeetPerMetre));
}

bool TodayViewController::followsCourse() const {
  const auto compass = compassRotatingView.lock();
  return compass && compass->compassDisplayCourse();
}

void TodayViewController::turnArrow(double heading) {
  const CLLocationCoordinate2D position = currentCoordinate();
  const double bearing = CoordinateDistance::getAngleFromLatAndLongToOldLatAndOldLong(
      position.latitude, position.longitude, waypointLatitude, waypointLongitude);
  compassRotatingView.send(&CompassView::rotateCompassArrowToBearingWithHeading, bearing, heading);
}

// The date is written before the lookup, so that a failing one is not repeated at every fix either.
// It lies in the local store and outlives the process.
void TodayViewController::refreshAddressIfDue() {
  const auto stored = UserDefaults::checkObjectDefaults("addressDate");
  const auto lastLookup = stored ? stored->dateValue() : std::nullopt;
  if (lastLookup && !(lastLookup->timeIntervalSinceNow() < -kAddressSeconds)) return;
  UserDefaults::setObjectForKey(PropertyValue(NSDate::date()), "addressDate");
  updateAddress();
}

void TodayViewController::locationManagerDidUpdateHeading(CLLocationManager& /*manager*/,
                                                          const CLHeading& heading) {
  if (heading.headingAccuracy < 0) return;
  currentHeading = chosenHeading(heading);
  if (followsCourse()) return;
  setMapCompassDisplaysWithHeading(currentHeading);
  turnArrow(currentHeading);
}

void TodayViewController::setMapCompassDisplaysWithHeading(double heading) {
  if (heading < 0) return;
  const bool mils = UserDefaults::checkIntDefaults("useMils") != 0;
  headingLabel.send(&UILabel::setText, mils ? stringWithFormat("%0.0f mils", heading * 6400 / 360)
                                            : stringWithFormat("%0.0f°", heading));
  const double x = (heading / 360) * kTapePointsPerTurn;
  leftConstraint.send(&NSLayoutConstraint::setConstant, x);
  compassLabel.send(&UIView::setFrame, CGRect{{x, kTapeTop}, kTapeSize});
}

}  // namespace wayfell
