#include "platform/UIViewController.h"

namespace wayfell {

void UIViewController::setPreferredContentSize(const CGSize& size) {
  if (preferredContentSize_ == size) return;
  preferredContentSize_ = size;
  if (onSizeChange_) onSizeChange_();
}

}  // namespace wayfell
