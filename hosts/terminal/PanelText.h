// The panel drawn with characters, for terminals and logs.
//
// Expanded, 40 columns wide:
//   ╭─ Wayfell ────────────────── 0:05:00 ─╮
//   │             ▼                        │   the mark, over
//   │ .....N........45........E           7° │   the tape, and the heading
//   ...
// What a hidden view holds is left out: the waypoint's rows without a waypoint, either pair of
// track rows, the mark. The compact layout leaves out the tape, the waypoint and the address, for
// which its 78 points have no room.
//
// The tape is a window of the tape's text that stands where the interface has moved it: the mark
// is over "N" (or "0") at 0 degrees, over "E" (or "1600") at 90.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/services/WidgetInterface.h"

namespace wayfell {

inline constexpr int kPanelColumns = 40;

/// The lines, each `columns` wide, at least kPanelColumns. The caption stands in the frame on the
/// right.
std::vector<std::string> panelText(const WidgetInterface& interface, std::string_view caption,
                                   int columns = kPanelColumns);

}  // namespace wayfell
