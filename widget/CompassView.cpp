#include "widget/CompassView.h"

#include "platform/UnitFactors.h"

namespace wayfell {

void CompassView::rotateCompassArrowToBearingWithHeading(double bearing, double heading) {
  change(arrow_, Arrow{bearing, heading});
  compassArrowView_->setTransform({(bearing - heading) * kRadiansPerDegree});
}

}  // namespace wayfell
