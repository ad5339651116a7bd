#include "hosts/window/panel/ShapeItem.h"

#include <QPainter>
#include <QPainterPath>

namespace wayfell {
namespace {

// Each draws in a square of 100 x 100, or stretched over the item.
void fillPolygon(QPainter& painter, const QColor& color, const QPolygonF& polygon) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(polygon);
}

void drawDisclosure(QPainter& painter, const QColor& color) {
  painter.setPen(QPen(color, 14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({{38, 20}, {68, 50}, {38, 80}}));
}

constexpr double kRing = 39;  // its radius; what stands in its gap may reach to 50
constexpr double kGap = 17;   // degrees to each side of the top

void drawDial(QPainter& painter, const QColor& color, const QColor& lines, bool hollow) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(lines, 1.5, hollow ? Qt::DotLine : Qt::SolidLine));
  const QRectF ring(50 - kRing, 50 - kRing, 2 * kRing, 2 * kRing);
  painter.drawArc(ring, qRound(16 * (90 + kGap)), qRound(16 * (360 - 2 * kGap)));
  painter.translate(50, 50);
  for (int angle = 30; angle < 360; angle += 30) {
    const bool main = angle % 90 == 0;
    painter.rotate(30);
    painter.setPen(QPen(main && !hollow ? color : lines, main ? 3 : 1.5));
    painter.drawLine(QPointF(0, -kRing), QPointF(0, main ? 8 - kRing : 5 - kRing));
  }
}

// The outline lies within the figure.
void drawFigure(QPainter& painter, const QColor& color, const QPolygonF& polygon, bool hollow) {
  if (!hollow) return fillPolygon(painter, color, polygon);
  QPainterPath figure;
  figure.addPolygon(polygon);
  figure.closeSubpath();
  painter.setClipPath(figure);
  painter.strokePath(figure, QPen(color, 7));
  painter.setClipping(false);
}

void drawFlag(QPainter& painter, const QColor& color) {
  fillPolygon(painter, color, QPolygonF({{12, 4}, {26, 4}, {26, 100}, {12, 100}}));
  fillPolygon(painter, color, QPolygonF({{26, 4}, {96, 30}, {26, 58}}));
}

}  // namespace

void ShapeItem::paint(QPainter* painter) {
  painter->setRenderHint(QPainter::Antialiasing);
  painter->scale(width() / 100, height() / 100);
  painter->translate(50, 50);
  painter->rotate(turn_);
  painter->translate(-50, -50);
  switch (shape_) {
    case Mark:
      return fillPolygon(*painter, color_, QPolygonF({{0, 0}, {100, 0}, {50, 100}}));
    case Disclosure:
      return drawDisclosure(*painter, color_);
    case Dial:
      return drawDial(*painter, color_, secondColor_, hollow_);
    case Needle:
      drawFigure(*painter, color_, QPolygonF({{50, 18}, {58, 50}, {42, 50}}), hollow_);
      return drawFigure(*painter, secondColor_, QPolygonF({{50, 82}, {58, 50}, {42, 50}}), hollow_);
    case Arrow:
      return drawFigure(*painter, color_, QPolygonF({{50, 18}, {72, 72}, {50, 61}, {28, 72}}),
                        hollow_);
    case Flag:
      return drawFlag(*painter, color_);
  }
}

}  // namespace wayfell
