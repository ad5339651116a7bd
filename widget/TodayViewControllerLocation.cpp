// Fixes and headings: which are let in, and what each changes.

#include "coordinates/CoordinateDistance.h"
#include "settings/UserDefaults.h"
#include "widget/CompassTape.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

// Fixes worse than this teach nothing about what accuracy to expect.
constexpr double kLearnedAccuracy = 200.0;  // metres
// So good an altitude is accepted, and kGoodHorizontalAccuracy, whatever the others are like.
constexpr double kGoodVerticalAccuracy = 70.0;  // metres
// How much worse than the average a fix may be.
constexpr double kAccuracyMargin = 1.0;  // metres

double chosenHeading(const CLHeading& heading) {
  // 0 takes the true heading even when it is invalid; then nothing is shown. Numbers above 1 take
  // the magnetic one instead.
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
    // Once: a panel that has disappeared gets no more headings when it appears again.
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
  showHeading(heading);
  const double x = (heading / 360) * -kTapePointsPerTurn;
  leftConstraint.send(&NSLayoutConstraint::setConstant, x);
  compassLabel.send(&UIView::setFrame, CGRect{{x, kTapeTop}, kTapeSize});
}

}  // namespace wayfell
