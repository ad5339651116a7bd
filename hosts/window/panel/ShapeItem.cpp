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

void drawDial(QPainter& painter, const QColor& color, const QColor& lines) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(lines, 1.5));
  painter.drawEllipse(QPointF(50, 50), 48, 48);
  painter.translate(50, 50);
  for (int angle = 0; angle < 360; angle += 30) {
    const bool main = angle % 90 == 0;
    painter.setPen(QPen(main ? color : lines, main ? 3 : 1.5));
    painter.drawLine(QPointF(0, -46), QPointF(0, main ? -36 : -40));
    painter.rotate(30);
  }
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
      return drawDial(*painter, color_, secondColor_);
    case Needle:
      fillPolygon(*painter, color_, QPolygonF({{50, 16}, {58, 50}, {42, 50}}));
      return fillPolygon(*painter, secondColor_, QPolygonF({{50, 84}, {58, 50}, {42, 50}}));
    case Arrow:
      return fillPolygon(*painter, color_, QPolygonF({{50, 0}, {66, 30}, {50, 22}, {34, 30}}));
  }
}

}  // namespace wayfell
