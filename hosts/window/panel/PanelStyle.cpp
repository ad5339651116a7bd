#include "hosts/window/panel/PanelStyle.h"

#include <algorithm>

namespace wayfell {

void PanelStyle::setFontScale(double scale) {
  change(fontScale_, std::clamp(scale, 1.0, kGreatestFontScale));
}

}  // namespace wayfell
