#include "hosts/window/panel/TapeItem.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace wayfell {
namespace {

// Points.
constexpr double kNorth = 65;
constexpr double kLabelDistance = kTapePointsPerTurn / kTapeLabelsPerTurn;
constexpr double kWidestLabel = 26;
constexpr double kMiddle = 16;  // of the letters, below the tip of the mark

}  // namespace

TapeItem::TapeItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  const auto takeSize = [this] { setSize(unit_ * QSizeF(kTapeSize.width, kTapeSize.height)); };
  connect(this, &TapeItem::changed, this, takeSize);
  connect(this, &TapeItem::changed, this, [this] { update(); });
  takeSize();
}

double TapeItem::north() { return kNorth; }

QFont TapeItem::fittingFont(const TapeReading& tape) const {
  QFont font;
  font.setPixelSize(std::max(1, static_cast<int>(letterSize_)));
  font.setBold(true);
  const QFontMetricsF metrics(font);
  double widest = 0;
  for (const TapeReading::Label& label : tape.labels) {
    widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(label.text)));
  }
  if (widest > kWidestLabel) {
    font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * kWidestLabel / widest)));
  }
  return font;
}

// What follows the last label may lie beyond the right edge, where the frame never shows it.
void TapeItem::paint(QPainter* painter) {
  const TapeReading tape = readTape(text_.toStdString());
  const QFont font = fittingFont(tape);
  const QFontMetricsF metrics(font);
  painter->scale(unit_, unit_);
  painter->setFont(font);
  painter->setBrush(dotColor_);
  painter->setRenderHint(QPainter::Antialiasing);
  const auto drawDots = [&](int dots, double from, double to) {
    painter->setPen(Qt::NoPen);
    for (int i = 1; i <= dots; ++i) {
      painter->drawEllipse(QPointF(from + (to - from) * i / (dots + 1), kMiddle), 0.7, 0.7);
    }
  };
  double end = 0;  // of the label before
  double middle = kNorth - kTapeNorthLabel * kLabelDistance;
  for (const TapeReading::Label& label : tape.labels) {
    const QString text = QString::fromStdString(label.text);
    const double half = metrics.horizontalAdvance(text) / 2;
    drawDots(label.dotsBefore, end, middle - half);
    painter->setPen(labelColor_);
    painter->drawText(QPointF(middle - half, kMiddle + metrics.capHeight() / 2), text);
    end = middle + half;
    middle += kLabelDistance;
  }
  drawDots(tape.dotsAtEnd, end, end + metrics.horizontalAdvance('.') * (tape.dotsAtEnd + 1));
}

}  // namespace wayfell
