// Where the letters of the compass tape stand, so that what is under the mark is the heading: the
// middle of each label is put on its degree and the dots are spread evenly over the rest.
#pragma once

#include <QFontMetricsF>
#include <QString>
#include <vector>

#include "hosts/panel/CompassTape.h"

namespace wayfell {

/// Points.
inline constexpr double kTapeWidth = 430;
inline constexpr double kTapeHeight = 26;
/// Where due north of an unmoved tape is, which is where the mark stands over the frame.
inline constexpr double kTapeNorth = 65;

struct TapeGlyphs {
  QString text;  ///< a whole label, or one dot
  double middle = 0;
  friend bool operator==(const TapeGlyphs&, const TapeGlyphs&) = default;
};

/// From left to right, in points from the tape's left edge. What follows the last label may lie
/// beyond the right edge, where the frame never shows it.
std::vector<TapeGlyphs> layOutTape(const CompassTape& tape, const QFontMetricsF& metrics);

/// The widest label.
double widestTapeLabel(const CompassTape& tape, const QFontMetricsF& metrics);

}  // namespace wayfell
