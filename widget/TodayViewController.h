// The widget's one view controller: start-up, the settings snapshot, the two layouts, what each
// fix and each heading changes, the refresh twice a second, and the address.
//
// One class in several sources, one a concern:
//   TodayViewController.cpp          life cycle, layout, opening the containing app
//   TodayViewControllerLocation.cpp  which fixes and headings are let in, and what each changes
//   TodayViewControllerPosition.cpp  the position and the address
//   TodayViewControllerReadouts.cpp  the texts of all other rows
//
// The objects that it makes for itself (defaults, locationManager, velocityManager, accuracyTrack)
// it makes when they are first asked for, unless they have been set.
//
// A host makes one with std::make_shared, connects the outlets that its interface has, calls
// viewDidLoad once and then the appearance calls; everything runs on the run loop's thread.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "motion/AccuracyTrack.h"
#include "motion/VelocityManager.h"
#include "platform/CLLocationManager.h"
#include "platform/CLPlacemark.h"
#include "platform/NSLayoutConstraint.h"
#include "platform/NSTimer.h"
#include "platform/NSUserDefaults.h"
#include "platform/UILabel.h"
#include "platform/UISegmentedControl.h"
#include "platform/UIViewController.h"
#include "widget/CompassView.h"

namespace wayfell {

class TodayViewController : public UIViewController,
                            public CLLocationManagerDelegate,
                            public std::enable_shared_from_this<TodayViewController> {
 public:
  /// The name of the settings that the containing app shares with the widget.
  static constexpr std::string_view kSharedSuite = "group.org.wayfell.Wayfell";
  /// How often the rows that change with time are refreshed.
  static constexpr double kTickSeconds = 0.5;
  /// How long from one lookup of the address to the next, at least. Users agree to being looked up
  /// as often as that.
  static constexpr double kAddressSeconds = 60.0;
  /// Metres; a fix that is no less accurate in the plane is shown, if its altitude is good.
  static constexpr double kGoodHorizontalAccuracy = 50.0;

  // Views of the interface, in the order in which it declares them. All are weak.

  Outlet<UIView> compassView;    ///< the frame of the compass tape
  Outlet<UILabel> compassLabel;  ///< the tape's text, slid sideways by the heading
  Outlet<UILabel> headingLabel;
  Outlet<UIView> dataView;  ///< the position rows
  Outlet<UILabel> altitudeLabel;
  Outlet<UILabel> speedLabel;           ///< speed or pace
  Outlet<UILabel> timeLabel;            ///< track time, expanded layout
  Outlet<UILabel> distanceLabel;        ///< track distance, expanded layout
  Outlet<UILabel> userCoordinateLabel;  ///< the position
  Outlet<UILabel> utmZoneLabel;
  Outlet<UIView> cornerView;
  Outlet<CompassView> compassRotatingView;
  Outlet<UILabel> latLongLabel;
  Outlet<UILabel> etaLabel;
  Outlet<UILabel> waypointDistanceLabel;
  Outlet<UILabel> altitudeNameLabel;
  Outlet<UILabel> speedNameLabel;
  Outlet<UILabel> waypointDistanceNameLabel;
  Outlet<UILabel> etaNameLabel;
  Outlet<UIView> waypointDataView;
  Outlet<UILabel> timeNameLabel;
  Outlet<UILabel> distanceNameLabel;
  Outlet<UIView> trackDataView;
  Outlet<UILabel> miniTimeNameLabel;
  Outlet<UILabel> miniDistanceNameLabel;
  Outlet<UILabel> miniTimeLabel;
  Outlet<UILabel> miniDistanceLabel;
  Outlet<UIView> miniTrackDataView;

  /// The shared settings.
  NSUserDefaults& defaults();
  void setDefaults(NSUserDefaults defaults) { defaults_ = defaults; }

  Outlet<UIImageView> compassArrowImageView;  ///< fixed over the tape: the mark
  Outlet<UIButton> toggleViewButton;
  Outlet<UIVisualEffectView> openView;
  Outlet<UIVisualEffectView> openMiniView;
  Outlet<UILabel> openLabel;
  Outlet<UILabel> openMiniLabel;
  Outlet<UILabel> addressLabel;
  Outlet<NSLayoutConstraint> leftConstraint;  ///< horizontal offset of the tape

  /// Degrees; 0/0 when the containing app has set none.
  double waypointLatitude = 0;
  double waypointLongitude = 0;
  bool hasWaypoint = false;

  Outlet<UIImageView> arrowImageView;

  /// Created and configured on the first call, which also starts the headings.
  CLLocationManager& locationManager();
  void setLocationManager(std::unique_ptr<CLLocationManager> manager) {
    locationManager_ = std::move(manager);
  }
  /// Degrees: the last heading that was valid.
  double currentHeading = 0;
  /// The last fix that was accurate enough; the fix delivered before the present one, accurate
  /// or not; the last accepted fix once its processing has ended (which nothing reads).
  std::optional<CLLocation> currentLocation;
  std::optional<CLLocation> oldLocation;
  std::optional<CLLocation> lastCurrentLocation;
  VelocityManager& velocityManager();
  void setVelocityManager(std::shared_ptr<VelocityManager> manager) {
    velocityManager_ = std::move(manager);
  }
  AccuracyTrack& accuracyTrack();
  void setAccuracyTrack(std::unique_ptr<AccuracyTrack> track) { accuracyTrack_ = std::move(track); }

  Outlet<UISegmentedControl> coordinateControl;  ///< choice of the coordinate format
  bool didLoad = false;                          ///< consulted by nothing

  // Life cycle and layout.

  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;
  void didReceiveMemoryWarning() override;

  /// Applies the stored layout.
  void toggleView();
  /// Flips the layout and stores the new one; the disclosure button's action.
  void toggleView(const UIButton* sender);
  /// Opens the containing app. The action of a tap; does nothing without a sender.
  void openApp(const UITapGestureRecognizer* sender);
  /// Opens the containing app at the current position, named by the address.
  void openAppWithCoordinate();
  /// Stores the control's choice and shows the position in it.
  void changeCoordinateUnits(const UISegmentedControl* sender);

  // Fixes and headings.

  void locationManagerDidUpdateLocations(CLLocationManager& manager,
                                         const std::vector<CLLocation>& locations) override;
  /// Takes one fix; the old one is not used.
  void locationManagerDidUpdateToNewLocationFromLocation(
      CLLocationManager& manager, const CLLocation& newLocation,
      const std::optional<CLLocation>& oldLocation);
  void locationManagerDidUpdateHeading(CLLocationManager& manager,
                                       const CLHeading& heading) override;
  /// Shows a heading in degrees as text and as the tape's position; nothing below 0.
  void setMapCompassDisplaysWithHeading(double heading);

  // The position and its address.

  /// Lays the position out over the labels for a format (0 to 4); others change nothing.
  void updateCurrentLocationDisplayWithUnits(int units);
  void updateAddress();
  void geocoderDidFindPlacemark(const std::optional<CLPlacemark>& placemark);

  // What is refreshed twice a second.

  /// The tick; the sender is null when it is called directly.
  void paceTimer3(const NSTimer* sender);
  void updateSpeed();
  /// Metres per second.
  void calculateETAWithSpeed(double speed);
  /// Metres.
  void updateDistance(double distance);
  /// Seconds.
  void updateTime(double time);
  /// Texts of a speed in metres per second; none for unknown units.
  static std::optional<FormattedText> convertMetersPerSecondToSpeed(double speed);
  static std::optional<FormattedText> convertMetersPerSecondToPace(double speed);

 private:
  /// Whether a layout also shows or hides the waypoint's row and arrow. Only flipping does;
  /// applying the stored layout leaves them as the appearance set them.
  enum class WaypointViews { keep, update };

  void takeSettingsSnapshot();
  void showTape();
  void showWaypointViews();
  void startLocationUpdates();
  void showCompactLayout(WaypointViews waypointViews);
  void showExpandedLayout(WaypointViews waypointViews);
  void animateToggleButton(double rotation);
  bool isAccurateEnough(const CLLocation& fix);
  void showWaypointDistance();
  void showPosition();
  void showAltitude();
  void showHeading(double heading);
  void refreshAddressIfDue();
  void turnArrow(double heading);
  bool followsCourse() const;
  /// Metres.
  double distanceToWaypoint() const;
  /// Where the user is; 0/0 before the first fix.
  CLLocationCoordinate2D currentCoordinate() const;

  std::optional<NSUserDefaults> defaults_;
  std::unique_ptr<CLLocationManager> locationManager_;
  std::shared_ptr<VelocityManager> velocityManager_;
  std::unique_ptr<AccuracyTrack> accuracyTrack_;
};

}  // namespace wayfell
