// Where one is, in rows of a panel.
//
// Coordinates stand beside what their lines are called:
//   Latitude   45.00003°N
//   Longitude  7.00004°E
// A grid reference is no pair of them. It stands alone, broken between its parts where it must be,
// and the caption apart from it at the right end, in as many rows:
//   32 N 342376.6mE 4984903.1mN
//                     Latitude Longitude
#pragma once

#include <vector>

#include "hosts/panel/PanelReading.h"
#include "hosts/terminal/TextRow.h"

namespace wayfell {

std::vector<TextRow> positionRows(const PanelReading& panel, int columns);

}  // namespace wayfell
