// The arrow compass: an arrow that points to the waypoint, whichever way the user is turned.
#pragma once

#include <memory>
#include <optional>

#include "platform/UIView.h"

namespace wayfell {

class CompassView : public UIView {
 public:
  /// Degrees, clockwise from north.
  struct Arrow {
    double bearing = 0;  ///< to the waypoint
    double heading = 0;  ///< of the device, or the course over ground
    friend bool operator==(const Arrow&, const Arrow&) = default;
  };

  const std::shared_ptr<UIView>& compassArrowView() const { return compassArrowView_; }

  /// Whether the compass follows the course over ground instead of the device's heading.
  bool compassDisplayCourse() const { return compassDisplayCourse_; }
  void setCompassDisplayCourse(bool course) { change(compassDisplayCourse_, course); }

  /// Turns the arrow so that it points to the waypoint when "up" is the heading: clockwise by
  /// bearing - heading.
  void rotateCompassArrowToBearingWithHeading(double bearing, double heading);
  /// What the arrow was last turned to; none before the first time.
  const std::optional<Arrow>& arrow() const { return arrow_; }

 private:
  std::shared_ptr<UIView> compassArrowView_ = std::make_shared<UIView>();
  bool compassDisplayCourse_ = false;
  std::optional<Arrow> arrow_;
};

}  // namespace wayfell
