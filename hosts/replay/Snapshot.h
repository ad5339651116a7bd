// What the widget shows and holds at an instant, as one line of JSON. docs/replay.md says what
// its fields are.
#pragma once

#include <string>

#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

/// Without an end of line. The same widget gives the same bytes with every compiler.
std::string snapshotLine(const ReplayedWidget& widget);

}  // namespace wayfell
