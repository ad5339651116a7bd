#include "hosts/window/panel/TapeItem.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace wayfell {
namespace {

constexpr double kWidestLabel = 26;  // points, of the 37.5 from label to label
constexpr double kMiddle = 16;       // points, of the letters, below the tip of the mark

}  // namespace

TapeItem::TapeItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setSize({kTapeSize.width, kTapeSize.height});
}

QFont TapeItem::fittingFont(const TapeReading& tape) const {
  QFont font;
  font.setPixelSize(std::max(1, static_cast<int>(pixelSize_)));
  font.setBold(true);
  const double widest = widestTapeLabel(tape, QFontMetricsF(font));
  if (widest > kWidestLabel) {
    font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * kWidestLabel / widest)));
  }
  return font;
}

void TapeItem::paint(QPainter* painter) {
  const TapeReading tape = readTape(text_.toStdString());
  const QFont font = fittingFont(tape);
  const QFontMetricsF metrics(font);
  painter->setFont(font);
  painter->setRenderHint(QPainter::Antialiasing);
  const double baseline = kMiddle + metrics.capHeight() / 2;
  for (const TapeGlyphs& glyphs : layOutTape(tape, metrics)) {
    if (glyphs.text == QStringLiteral(".")) {
      painter->setPen(Qt::NoPen);
      painter->setBrush(dotColor_);
      painter->drawEllipse(QPointF(glyphs.middle, kMiddle), 0.7, 0.7);
      continue;
    }
    painter->setPen(labelColor_);
    painter->drawText(QPointF(glyphs.middle - metrics.horizontalAdvance(glyphs.text) / 2, baseline),
                      glyphs.text);
  }
}

}  // namespace wayfell
