// The program's own lines below the panel:
//
//    REPLAY  walk.jsonl    0:00:12  paused
//     ? keys  q quit           fix 7 s old
//
// A warning that has no room beside what is told gets rows of its own, if there are any; else it
// comes first, and is only cut where it has no room by itself.
#pragma once

#include <string>
#include <vector>

#include "hosts/scene/Scene.h"
#include "hosts/terminal/TextRow.h"

namespace wayfell {

struct HostLines {
  Scene::Lines scene;
  std::string message;             ///< what is to be told; empty for the hints
  std::vector<std::string> hints;  ///< the longest first; the first is shown that has room
};

/// How many rows they take at least.
int leastRowsOf(const HostLines& lines);

/// In as many rows as that, or up to the most.
std::vector<TextRow> composeHostLines(const HostLines& lines, int columns, int mostRows);

}  // namespace wayfell
