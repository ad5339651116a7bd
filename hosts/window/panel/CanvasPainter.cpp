#include "hosts/window/panel/CanvasPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace wayfell {
namespace {

// Clockwise from the middle of the top, each corner an arc or a point.
QPainterPath painterPath(const UIBezierPath& path) {
  const QRectF rect(path.rect.origin.x, path.rect.origin.y, path.rect.size.width,
                    path.rect.size.height);
  const QSizeF arc(std::min(2 * path.cornerRadii.width, rect.width()),
                   std::min(2 * path.cornerRadii.height, rect.height()));
  QPainterPath result(QPointF(rect.center().x(), rect.top()));
  const auto turn = [&](UIRectCorner corner, QPointF point, double arcLeft, double arcTop,
                        double startAngle) {
    if ((path.roundedCorners & corner) == 0) return result.lineTo(point);
    result.arcTo(QRectF(QPointF(arcLeft, arcTop), arc), startAngle, -90);
  };
  const double right = rect.right() - arc.width();
  const double bottom = rect.bottom() - arc.height();
  turn(kTopRightCorner, rect.topRight(), right, rect.top(), 90);
  turn(kBottomRightCorner, rect.bottomRight(), right, bottom, 0);
  turn(kBottomLeftCorner, rect.bottomLeft(), rect.left(), bottom, 270);
  turn(kTopLeftCorner, rect.topLeft(), rect.left(), rect.top(), 180);
  result.closeSubpath();
  return result;
}

}  // namespace

QColor colorOf(const UIColor& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

void CanvasPainter::fillPath(const UIBezierPath& path) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.fillPath(painterPath(path), fill_);
}

}  // namespace wayfell
