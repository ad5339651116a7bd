#include "platform/UISegmentedControl.h"

namespace wayfell {
namespace {

UIColor selectedTitle{1, 1, 1, 1};

}  // namespace

void UISegmentedControl::pick(int segment) {
  setSelectedSegmentIndex(segment);
  for (const Action& action : actions_) action(this);
}

const UIColor& UISegmentedControl::selectedTitleColor() { return selectedTitle; }
void UISegmentedControl::setSelectedTitleColor(const UIColor& color) { selectedTitle = color; }

}  // namespace wayfell
