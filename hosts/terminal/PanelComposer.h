// The panel composed of characters, for whatever shows text: a screen that follows it, a log.
//
// Expanded, 40 columns wide:
//   ╭─ Wayfell ────────────────── 0:05:00 ─╮
//   │             ▼                        │   the mark, over
//   │ .W......315.......N......       330° │   the tape, and the heading
//   │ Latitude   46° 58.9648' N            │
//   ...
// With 60 columns and the rows for it the numbers are three rows high. What a hidden view holds
// is left out: the waypoint's rows without a waypoint, either pair of track rows, the mark. The
// compact layout leaves out the tape, the waypoint and the address, for which its 78 points have
// no room, and is never large.
//
// The tape is a window of the tape's text that stands where the interface has moved it: the mark
// is over "N" (or "0") at 0 degrees, over "E" (or "1600") at 90, and nowhere more than half a
// column off.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/panel/PanelKeys.h"
#include "hosts/panel/PanelReading.h"

namespace wayfell {

/// The panel is never narrower, and takes more up to the greatest width.
inline constexpr int kNarrowestPanel = 40;
inline constexpr int kWidestPanel = 64;

/// How a text stands out.
enum class TextStyle { frame, caption, value, dots, mark, arrow, format, chosenFormat, button };

struct TextSpan {
  int column = 0;
  std::string text;
  TextStyle style = TextStyle::value;
  std::optional<PanelRequest> request = {};  ///< what a click on the text asks for
};

/// From left to right, not overlapping; blanks between them.
using TextRow = std::vector<TextSpan>;

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
