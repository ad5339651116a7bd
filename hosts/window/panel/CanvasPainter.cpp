#include "hosts/window/panel/CanvasPainter.h"

#include <QPainter>
#include <QPainterPath>

namespace wayfell {
namespace {

// The rectangle with some corners rounded: a rounded one and a square at each of the others.
QPainterPath painterPath(const UIBezierPath& path) {
  const QRectF rect(path.rect.origin.x, path.rect.origin.y, path.rect.size.width,
                    path.rect.size.height);
  const double rx = std::min(path.cornerRadii.width, rect.width() / 2);
  const double ry = std::min(path.cornerRadii.height, rect.height() / 2);
  QPainterPath result;
  result.setFillRule(Qt::WindingFill);
  result.addRoundedRect(rect, rx, ry);
  const auto square = [&](UIRectCorner corner, double x, double y) {
    if ((path.roundedCorners & corner) == 0) result.addRect(x, y, rx, ry);
  };
  square(kTopLeftCorner, rect.left(), rect.top());
  square(kTopRightCorner, rect.right() - rx, rect.top());
  square(kBottomLeftCorner, rect.left(), rect.bottom() - ry);
  square(kBottomRightCorner, rect.right() - rx, rect.bottom() - ry);
  return result.simplified();
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
