// Where the letters of the compass tape stand, so that what is under the mark is the heading.
//
// The tape's text is labels with dots between them: "...315.......N........45........E" and so on.
// An eighth of a turn lies between two labels, so the middle of each is put on its degree and the
// dots are spread evenly over the rest.
#pragma once

#include <QFontMetricsF>
#include <QString>
#include <vector>

namespace wayfell {

/// Points.
inline constexpr double kTapeWidth = 430;
inline constexpr double kTapeHeight = 26;
inline constexpr double kTapePointsPerTurn = 300;
/// Where due north of an unmoved tape is, which is where the mark stands over the frame.
inline constexpr double kTapeNorth = 65;

struct TapeGlyphs {
  QString text;  ///< a whole label, or one dot
  double middle = 0;
  friend bool operator==(const TapeGlyphs&, const TapeGlyphs&) = default;
};

/// From left to right, in points from the tape's left edge. What follows the last label may lie
/// beyond the right edge, where the frame never shows it.
std::vector<TapeGlyphs> layOutTape(const QString& tape, const QFontMetricsF& metrics);

/// The widest label.
double widestTapeLabel(const QString& tape, const QFontMetricsF& metrics);

}  // namespace wayfell
