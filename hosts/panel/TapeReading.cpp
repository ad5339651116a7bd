#include "hosts/panel/TapeReading.h"

#include <cmath>
#include <utility>

#include "widget/CompassTape.h"

namespace wayfell {

TapeReading readTape(std::string_view text) {
  TapeReading tape;
  bool inLabel = false;
  for (const char byte : text) {
    if (byte == '.') {
      ++tape.dotsAtEnd;
      inLabel = false;
      continue;
    }
    if (!inLabel) tape.labels.push_back({{}, std::exchange(tape.dotsAtEnd, 0)});
    tape.labels.back().text += byte;
    inLabel = true;
  }
  return tape;
}

double labelUnderMark(double offset) {
  const double turns = std::isfinite(offset) ? -offset / kTapePointsPerTurn : 0;
  return kTapeNorthLabel + turns * kTapeLabelsPerTurn;
}

}  // namespace wayfell
