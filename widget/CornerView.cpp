#include "widget/CornerView.h"

namespace wayfell {

void CornerView::drawRect(UICanvas& canvas, const CGRect& /*rect*/) {
  canvas.setFillColor({0, 0, 0, 0.5});
  canvas.fillPath({bounds(), kTopLeftCorner | kBottomRightCorner, {4.0, 4.0}});
}

}  // namespace wayfell
