#include "hosts/terminal/TapeColumns.h"

#include <algorithm>
#include <cmath>

#include "hosts/text/Utf8.h"

namespace wayfell {

TapeColumns::TapeColumns(const TapeReading& tape) {
  for (const TapeReading::Label& label : tape.labels) {
    addDots(label.dotsBefore);
    const std::size_t first = glyphs_.size();
    for (std::string_view rest = label.text; !rest.empty();) {
      glyphs_.emplace_back();
      appendCodePoint(glyphs_.back(), takeCodePoint(rest).value_or(U' '));
    }
    labels_.push_back(static_cast<double>(first + glyphs_.size() - 1) / 2);
  }
  addDots(tape.dotsAtEnd);
}

std::ptrdiff_t TapeColumns::marked(double offset) const {
  if (labels_.size() < 2) return 0;
  const double label = labelUnderMark(offset);
  const auto last = static_cast<double>(labels_.size() - 1);
  const double before = std::clamp(std::floor(label), 0.0, last - 1);
  const auto i = static_cast<std::size_t>(before);
  const double place = labels_[i] + (label - before) * (labels_[i + 1] - labels_[i]);
  return std::lround(std::clamp(place, labels_.front(), labels_.back()));
}

std::string_view TapeColumns::glyph(std::ptrdiff_t index) const {
  constexpr std::size_t kNorth = kTapeNorthLabel;
  constexpr std::size_t kNextNorth = kNorth + kTapeLabelsPerTurn;
  if (index < 0 && labels_.size() > kNextNorth) {
    index += std::lround(labels_[kNextNorth] - labels_[kNorth]);
  }
  return index >= 0 && index < std::ssize(glyphs_) ? glyphs_[static_cast<std::size_t>(index)]
                                                   : std::string_view(" ");
}

}  // namespace wayfell
