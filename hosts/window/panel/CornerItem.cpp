#include "hosts/window/panel/CornerItem.h"

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

// The canvas that the view draws on, painted; one of the painter's units is a point.
class CanvasPainter : public UICanvas {
 public:
  explicit CanvasPainter(QPainter& painter) : painter_(painter) {}

  void setFillColor(const UIColor& color) override { fill_ = colorOf(color); }
  void fillPath(const UIBezierPath& path) override {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.fillPath(painterPath(path), fill_);
  }

 private:
  QPainter& painter_;
  QColor fill_ = Qt::black;
};

}  // namespace

QColor colorOf(const UIColor& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

void CornerItem::setPanel(PanelAdapter* panel) {
  panel_ = panel;
  takeSize();
}

void CornerItem::setUnit(double unit) {
  unit_ = unit;
  takeSize();
}

void CornerItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
  takeSize();
}

void CornerItem::takeSize() {
  if (panel_)
    panel_->corner().setFrame({{x() / unit_, y() / unit_}, {width() / unit_, height() / unit_}});
  update();
}

void CornerItem::paint(QPainter* painter) {
  if (!panel_) return;
  painter->scale(unit_, unit_);
  CanvasPainter canvas(*painter);
  panel_->corner().drawRect(canvas, panel_->corner().bounds());
}

}  // namespace wayfell
