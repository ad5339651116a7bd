#include "hosts/window/panel/PanelOutlet.h"

#include <cmath>

namespace wayfell {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

}  // namespace

void PanelOutlet::take() {
  hidden_ = view_.hidden();
  if (const auto* label = dynamic_cast<const UILabel*>(&view_)) {
    text_ = QString::fromStdString(label->text().value_or(""));
  }
  rotation_ = view_.transform().rotation * kDegreesPerRadian;
  rotationDuration_ = 0;
  emit changed();
}

void PanelOutlet::take(const UIViewAnimation& animation) {
  take();
  rotationDuration_ = static_cast<int>(std::lround(animation.duration * 1000));
  emit changed();
}

}  // namespace wayfell
