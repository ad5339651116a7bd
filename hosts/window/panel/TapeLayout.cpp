#include "hosts/window/panel/TapeLayout.h"

#include <algorithm>

#include "widget/CompassTape.h"

namespace wayfell {
namespace {

constexpr double kLabelDistance = kTapePointsPerTurn / kTapeLabelsPerTurn;

void spreadDots(std::vector<TapeGlyphs>& glyphs, int dots, double from, double to) {
  for (int i = 0; i < dots; ++i) {
    glyphs.push_back({QStringLiteral("."), from + (to - from) * (i + 1) / (dots + 1)});
  }
}

}  // namespace

std::vector<TapeGlyphs> layOutTape(const TapeReading& tape, const QFontMetricsF& metrics) {
  std::vector<TapeGlyphs> glyphs;
  double end = 0;  // of the label before
  double middle = kTapeNorth - kTapeNorthLabel * kLabelDistance;
  for (const TapeReading::Label& label : tape.labels) {
    const QString text = QString::fromStdString(label.text);
    const double half = metrics.horizontalAdvance(text) / 2;
    spreadDots(glyphs, label.dotsBefore, end, middle - half);
    glyphs.push_back({text, middle});
    end = middle + half;
    middle += kLabelDistance;
  }
  const double dot = metrics.horizontalAdvance('.');
  spreadDots(glyphs, tape.dotsAtEnd, end, end + dot * (tape.dotsAtEnd + 1));
  return glyphs;
}

double widestTapeLabel(const TapeReading& tape, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const TapeReading::Label& label : tape.labels) {
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label.text)));
  }
  return widest;
}

}  // namespace wayfell
