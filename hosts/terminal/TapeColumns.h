// The compass tape's text, one column a character, as a window on it shows it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/panel/TapeReading.h"

namespace wayfell {

class TapeColumns {
 public:
  explicit TapeColumns(const TapeReading& tape);

  /// The character under the mark of a tape that has been moved so many points to the right. The
  /// labels are not evenly spaced here, so the place is taken between the two nearest; it is
  /// nowhere more than half a column off.
  std::ptrdiff_t marked(double offset) const;

  /// Blank beyond the text's ends. But a wide window sees farther to the left of north than the
  /// text goes: there it is taken from one turn later.
  std::string_view glyph(std::ptrdiff_t index) const;

 private:
  void addDots(int count) { glyphs_.insert(glyphs_.end(), static_cast<std::size_t>(count), "."); }

  std::vector<std::string> glyphs_;
  std::vector<double> labels_;  // their middles
};

}  // namespace wayfell
