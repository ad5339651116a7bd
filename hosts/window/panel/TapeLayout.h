// Where the letters of the compass tape stand, so that what is under the mark is the heading: the
// middle of each label is put on its degree and the dots are spread evenly over the rest.
#pragma once

#include <QFontMetricsF>
#include <QString>
#include <vector>

#include "hosts/panel/TapeReading.h"

namespace wayfell {

/// Points from the left to due north of an unmoved tape, which is where the mark stands over the
/// frame.
inline constexpr double kTapeNorth = 65;

struct TapeGlyphs {
  QString text;  ///< a whole label, or one dot
  double middle = 0;
  friend bool operator==(const TapeGlyphs&, const TapeGlyphs&) = default;
};

/// From left to right, in points from the tape's left edge. What follows the last label may lie
/// beyond the right edge, where the frame never shows it.
std::vector<TapeGlyphs> layOutTape(const TapeReading& tape, const QFontMetricsF& metrics);

/// The widest label.
double widestTapeLabel(const TapeReading& tape, const QFontMetricsF& metrics);

}  // namespace wayfell
