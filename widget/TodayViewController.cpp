#include "widget/TodayViewController.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "coordinates/ConvertCoordinates.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/NSURL.h"
#include "platform/UnitFactors.h"
#include "settings/UserDefaults.h"
#include "widget/CompassTape.h"

namespace wayfell {
namespace {

constexpr double kCompactHeight = 78;    // points
constexpr double kExpandedHeight = 286;  // points
constexpr double kQuarterTurn = kPi / 2;

constexpr double kToggleSeconds = 0.2;
constexpr double kCornerRadius = 4.0;

// The position of a title is the number that "coordinateUnits" has for the format.
constexpr std::array<std::string_view, 5> kFormatTitles = {
    // Translators: decimal degrees. The five titles share a narrow row.
    textKey("Dec"),
    // Translators: degrees and minutes.
    textKey("Dm"),
    // Translators: degrees, minutes and seconds.
    textKey("DMs"), textKey("MGRS"), textKey("UTM")};

template <class View>
void roundCorners(const Outlet<View>& outlet) {
  if (const auto view = outlet.lock()) {
    CALayer layer = view->layer();
    layer.cornerRadius = kCornerRadius;
    view->setLayer(layer);
  }
}

void setCaption(const Outlet<UILabel>& label, std::string_view key) {
  label.send(&UILabel::setText, localizedText(key));
}

// The first path component of the URL that names a place.
std::string placeName(const Outlet<UILabel>& addressLabel) {
  const auto label = addressLabel.lock();
  std::string name = label ? label->text().value_or("") : "";
  if (name.empty()) return "Wayfell_Location";
  std::replace(name.begin(), name.end(), ',', '_');
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
}

void ignoreCompletion(bool /*finished*/) {}

}  // namespace

NSUserDefaults& TodayViewController::defaults() {
  if (!defaults_) defaults_.emplace(kSharedSuite);
  return *defaults_;
}

VelocityManager& TodayViewController::velocityManager() {
  if (!velocityManager_) velocityManager_ = std::make_shared<VelocityManager>()->init();
  return *velocityManager_;
}

AccuracyTrack& TodayViewController::accuracyTrack() {
  if (!accuracyTrack_) accuracyTrack_ = std::make_unique<AccuracyTrack>();
  return *accuracyTrack_;
}

void TodayViewController::viewDidLoad() {
  UIViewController::viewDidLoad();
  toggleView();
  compassView.send(&UIView::setLayer, CALayer{kCornerRadius, 1.0, kBlackColor});
  UISegmentedControl::setSelectedTitleColor(kBlackColor);
  for (std::size_t segment = 0; segment < kFormatTitles.size(); ++segment) {
    coordinateControl.send(&UISegmentedControl::setTitleForSegmentAtIndex,
                           std::string(localized(kFormatTitles[segment])), segment);
  }
  setCaption(altitudeNameLabel, "Altitude");
  setCaption(latLongLabel, "Latitude\nLongitude");
  setCaption(waypointDistanceNameLabel, "Distance");
  // Translators: how long it still takes to the waypoint.
  setCaption(etaNameLabel, "ETA");
  setCaption(timeNameLabel, "Time");
  setCaption(distanceNameLabel, "Distance");
  setCaption(miniTimeNameLabel, "Time");
  setCaption(miniDistanceNameLabel, "Distance");
  setCaption(speedNameLabel, "Speed");
  setCaption(openLabel, "Open");
  setCaption(openMiniLabel, "Open");
  // Targets and recognizers do not keep the controller alive.
  const std::weak_ptr<TodayViewController> weakSelf = weak_from_this();
  coordinateControl.send(&UISegmentedControl::addTargetForValueChanged,
                         [weakSelf](const UISegmentedControl* sender) {
                           if (const auto self = weakSelf.lock()) {
                             self->changeCoordinateUnits(sender);
                           }
                         });
  roundCorners(openView);
  roundCorners(openMiniView);
  for (const auto& label : {openLabel, openMiniLabel}) {
    label.send(&UIView::addGestureRecognizer, std::make_shared<UITapGestureRecognizer>(
                                                  [weakSelf](const UITapGestureRecognizer* sender) {
                                                    if (const auto self = weakSelf.lock())
                                                      self->openApp(sender);
                                                  }));
  }
}

// The one life-cycle call that does not pass on to the superclass.
void TodayViewController::viewWillAppear(bool /*animated*/) {
  takeSettingsSnapshot();
  showTape();
  waypointLatitude = defaults().doubleForKey("waypointLatitude");
  waypointLongitude = defaults().doubleForKey("waypointLongitude");
  hasWaypoint = defaults().boolForKey("hasWaypoint");
  showWaypointViews();
  coordinateControl.send(&UISegmentedControl::setSelectedSegmentIndex,
                         UserDefaults::checkIntDefaults("coordinateUnits"));
  startLocationUpdates();
  // Nothing holds or invalidates the timer: each appearance adds one more, which outlives the
  // disappearance and, as it holds the controller, keeps it alive.
  NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(
      kTickSeconds, true,
      [self = shared_from_this()](const NSTimer& timer) { self->paceTimer3(&timer); });
  toggleView();
  if (auto address = defaults().stringForKey("widgetAddressString")) {
    addressLabel.send(&UILabel::setText, std::move(address));
  }
}

// Later displays read the local copies; the containing app's own store is not asked again.
void TodayViewController::takeSettingsSnapshot() {
  for (const char* key : {"useMils", "rotateMap"}) {
    UserDefaults::setBoolForString(defaults().boolForKey(key), key);
  }
  for (const char* key :
       {"units", "compassHeading", "mapCompassType", "speed", "coordinateUnits"}) {
    UserDefaults::setIntForString(defaults().integerForKey(key), key);
  }
}

void TodayViewController::showTape() {
  const bool mils = UserDefaults::checkDefaults("useMils");
  compassLabel.send(&UILabel::setText, std::string(compassTape(mils)));
}

void TodayViewController::showWaypointViews() {
  const bool shown = defaults().boolForKey("hasWaypoint");
  if (const auto compass = compassRotatingView.lock()) {
    compass->compassArrowView()->setHidden(!shown);
  }
  waypointDataView.send(&UIView::setHidden, !shown);
}

void TodayViewController::startLocationUpdates() {
  CLLocationManager& manager = locationManager();
  switch (manager.authorizationStatus()) {
    case CLAuthorizationStatus::notDetermined:
      manager.requestWhenInUseAuthorization();
      break;
    case CLAuthorizationStatus::authorizedAlways:
    case CLAuthorizationStatus::authorizedWhenInUse:
      manager.startUpdatingLocation();
      break;
    case CLAuthorizationStatus::restricted:
    case CLAuthorizationStatus::denied:
      break;
  }
}

void TodayViewController::viewWillDisappear(bool animated) {
  UIViewController::viewWillDisappear(animated);
  locationManager().stopUpdatingHeading();
  locationManager().stopUpdatingLocation();
}

void TodayViewController::didReceiveMemoryWarning() { UIViewController::didReceiveMemoryWarning(); }

void TodayViewController::toggleView() {
  if (defaults().boolForKey("viewHidden")) {
    showCompactLayout(WaypointViews::keep);
  } else {
    showExpandedLayout(WaypointViews::keep);
  }
}

void TodayViewController::toggleView(const UIButton* /*sender*/) {
  const bool wasCompact = defaults().boolForKey("viewHidden");
  if (wasCompact) {
    showExpandedLayout(WaypointViews::update);
  } else {
    showCompactLayout(WaypointViews::update);
  }
  defaults().setBoolForKey(!wasCompact, "viewHidden");
}

void TodayViewController::showCompactLayout(WaypointViews waypointViews) {
  setPreferredContentSize({0, kCompactHeight});
  cornerView.send(&UIView::setHidden, false);
  compassRotatingView.send(&UIView::setHidden, true);
  if (waypointViews == WaypointViews::update) waypointDataView.send(&UIView::setHidden, true);
  compassArrowImageView.send(&UIView::setHidden, true);
  paceTimer3(nullptr);
  miniTrackDataView.send(&UIView::setHidden, false);
  trackDataView.send(&UIView::setHidden, true);
  animateToggleButton(0);
}

void TodayViewController::showExpandedLayout(WaypointViews waypointViews) {
  cornerView.send(&UIView::setHidden, false);
  compassRotatingView.send(&UIView::setHidden, false);
  if (waypointViews == WaypointViews::update) showWaypointViews();
  compassArrowImageView.send(&UIView::setHidden, false);
  paceTimer3(nullptr);
  miniTrackDataView.send(&UIView::setHidden, true);
  trackDataView.send(&UIView::setHidden, false);
  setPreferredContentSize({0, kExpandedHeight});
  animateToggleButton(kQuarterTurn);
}

void TodayViewController::animateToggleButton(double rotation) {
  UIView::animateWithDurationDelayOptionsAnimationsCompletion(
      kToggleSeconds, 0, kAnimationOptionCurveEaseOut | kAnimationOptionAllowUserInteraction,
      [&] { toggleViewButton.send(&UIView::setTransform, CGAffineTransform{rotation}); },
      ignoreCompletion);
}

void TodayViewController::openApp(const UITapGestureRecognizer* sender) {
  if (!sender) return;
  extensionContext().openURLCompletionHandler(NSURL::URLWithString("wayfell://openFromWidget"),
                                              ignoreCompletion);
}

void TodayViewController::openAppWithCoordinate() {
  const CLLocationCoordinate2D position = currentCoordinate();
  const std::string url = stringWithFormat("wayfell://%@/%f/%f", placeName(addressLabel),
                                           position.latitude, position.longitude);
  extensionContext().openURLCompletionHandler(NSURL::URLWithString(url), ignoreCompletion);
}

void TodayViewController::changeCoordinateUnits(const UISegmentedControl* /*sender*/) {
  // Only the local store is written: the choice lasts until the next appearance, which restores
  // the containing app's.
  const auto control = coordinateControl.lock();
  UserDefaults::setIntForString(control ? control->selectedSegmentIndex() : 0, "coordinateUnits");
  showPosition();
}

CLLocationCoordinate2D TodayViewController::currentCoordinate() const {
  return currentLocation ? currentLocation->coordinate : CLLocationCoordinate2D{};
}

}  // namespace wayfell
