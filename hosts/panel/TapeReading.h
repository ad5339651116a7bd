// The compass tape: a text of labels with dots between them, "...315.......N........45........E"
// and so on, that slides under a fixed mark. What is under the mark is the heading.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

/// One each 45 degrees. An unmoved tape has the second one, due north, under the mark.
inline constexpr int kTapeLabelsPerTurn = 8;
inline constexpr int kTapeNorthLabel = 1;

struct TapeReading {
  struct Label {
    std::string text;
    int dotsBefore = 0;
  };
  std::vector<Label> labels;  ///< from left to right
  int dotsAtEnd = 0;
};

TapeReading readTape(std::string_view text);

/// The label under the mark of a tape that has been moved to the right by so many points, or what
/// part of the way there is from one label to the next: 1.5 is half way from the second to the
/// third.
double labelUnderMark(double offset);

}  // namespace wayfell
