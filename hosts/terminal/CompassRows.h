// The compass tape in rows of a panel: a window of the tape's text that stands where the interface
// has moved it, under a mark, and the heading as a number at the right end.
//
//               ▼
//   ..N........45........E...        45°
//
// The mark is over "N" (or "0") at 0 degrees, over "E" (or "1600") at 90, and nowhere more than
// half a column off. Without a fresh heading it is hollow, or in ASCII a question mark.
#pragma once

#include <vector>

#include "hosts/panel/PanelReading.h"
#include "hosts/terminal/TextRow.h"

namespace wayfell {

/// With a large heading three rows.
std::vector<TextRow> compassRows(const PanelReading& panel, int columns, bool large);

}  // namespace wayfell
