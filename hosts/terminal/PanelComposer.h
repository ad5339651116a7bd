// The panel composed of characters, for whatever shows text: a screen that follows it, a log.
//
// Expanded, 40 columns wide:
//   ╭─ Wayfell ────────────────── 0:05:00 ─╮
//   │             ▼                        │   the mark, over
//   │ .W......315.......N......       330° │   the tape, and the heading
//   │ Latitude   46° 58.9648' N            │
//   ...
// With 60 columns and the rows for it the numbers are three rows high. A title, a caption or the
// address is cut where it has no room, a number never: it takes another row. What a hidden view
// holds is left out: the waypoint's rows without a waypoint, either pair of track rows, the mark.
// The compact layout leaves out the tape, the waypoint and the address, for which its 78 points
// have no room, and is never large.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "hosts/panel/PanelReading.h"
#include "hosts/terminal/TextRow.h"

namespace wayfell {

/// The panel is never narrower, and takes more up to the greatest width.
inline constexpr int kNarrowestPanel = 40;
inline constexpr int kWidestPanel = 64;

/// What there is to fill.
struct PanelRoom {
  int columns = kNarrowestPanel;
  std::optional<int> rows;  ///< none for as many as it takes, without large numbers
  bool unicode = true;      ///< false where arrows are to be ASCII; numbers are then not large
};

struct ComposedPanel {
  int columns = 0;
  std::vector<TextRow> rows;
  int missingRows = 0;  ///< left out for want of room, the least telling first
};

/// The caption stands in the frame on the right.
ComposedPanel composePanel(const PanelReading& reading, const PanelRoom& room,
                           std::string_view caption);

}  // namespace wayfell
