#include "hosts/window/panel/CornerItem.h"

#include "hosts/window/panel/CanvasPainter.h"

namespace wayfell {
namespace {

CGRect frameOf(const QRectF& rect) { return {{rect.x(), rect.y()}, {rect.width(), rect.height()}}; }

}  // namespace

void CornerItem::setPanel(PanelAdapter* panel) {
  changeAndRepaint(*this, panel_, panel);
  if (panel_) panel_->corner().setFrame(frameOf({position(), size()}));
}

void CornerItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
  if (panel_) panel_->corner().setFrame(frameOf(newGeometry));
  update();
}

void CornerItem::paint(QPainter* painter) {
  if (!panel_) return;
  CanvasPainter canvas(*painter);
  panel_->corner().drawRect(canvas, panel_->corner().bounds());
}

}  // namespace wayfell
