#include "hosts/window/panel/TapeLayout.h"

#include <QStringList>
#include <algorithm>

namespace wayfell {
namespace {

constexpr double kLabelsPerTurn = 8;
constexpr double kLabelDistance = kTapePointsPerTurn / kLabelsPerTurn;
constexpr int kNorthLabel = 1;  // the second one

struct Label {
  QString text;
  int dotsBefore = 0;
};

std::vector<Label> labelsOf(const QString& tape, int& dotsAtEnd) {
  std::vector<Label> labels;
  dotsAtEnd = 0;
  bool inLabel = false;
  for (const QChar glyph : tape) {
    if (glyph == '.') {
      ++dotsAtEnd;
      inLabel = false;
      continue;
    }
    if (!inLabel) labels.push_back({{}, std::exchange(dotsAtEnd, 0)});
    labels.back().text.append(glyph);
    inLabel = true;
  }
  return labels;
}

void spreadDots(std::vector<TapeGlyphs>& glyphs, int dots, double from, double to) {
  for (int i = 0; i < dots; ++i) {
    glyphs.push_back({QStringLiteral("."), from + (to - from) * (i + 1) / (dots + 1)});
  }
}

}  // namespace

std::vector<TapeGlyphs> layOutTape(const QString& tape, const QFontMetricsF& metrics) {
  int dotsAtEnd = 0;
  const std::vector<Label> labels = labelsOf(tape, dotsAtEnd);
  std::vector<TapeGlyphs> glyphs;
  double end = 0;  // of the label before
  for (int i = 0; i < std::ssize(labels); ++i) {
    const Label& label = labels[static_cast<std::size_t>(i)];
    const double middle = kTapeNorth + (i - kNorthLabel) * kLabelDistance;
    const double half = metrics.horizontalAdvance(label.text) / 2;
    spreadDots(glyphs, label.dotsBefore, end, middle - half);
    glyphs.push_back({label.text, middle});
    end = middle + half;
  }
  const double dot = metrics.horizontalAdvance('.');
  spreadDots(glyphs, dotsAtEnd, end, end + dot * (dotsAtEnd + 1));
  return glyphs;
}

double widestTapeLabel(const QString& tape, const QFontMetricsF& metrics) {
  int dotsAtEnd = 0;
  double widest = 0;
  for (const Label& label : labelsOf(tape, dotsAtEnd)) {
    widest = std::max(widest, metrics.horizontalAdvance(label.text));
  }
  return widest;
}

}  // namespace wayfell
