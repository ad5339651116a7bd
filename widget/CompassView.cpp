#include "widget/CompassView.h"

namespace wayfell {
namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

}  // namespace

void CompassView::rotateCompassArrowToBearingWithHeading(double bearing, double heading) {
  change(arrow_, Arrow{bearing, heading});
  compassArrowView_->setTransform({(bearing - heading) * kRadiansPerDegree});
}

}  // namespace wayfell
