// The translucent dark backing of a corner of the panel.
#pragma once

#include "platform/UIView.h"

namespace wayfell {

class CornerView : public UIView {
 public:
  /// Fills the view's bounds, rounded at the top left and the bottom right.
  void drawRect(UICanvas& canvas, const CGRect& rect) override;
};

}  // namespace wayfell
