#include "hosts/window/panel/DrawnView.h"

#include "hosts/window/panel/CanvasPainter.h"

namespace wayfell {
namespace {

CGRect frameOf(const QRectF& rect) { return {{rect.x(), rect.y()}, {rect.width(), rect.height()}}; }

}  // namespace

void DrawnView::setView(PanelOutlet* view) {
  if (view == view_) return;
  if (view_) view_->disconnect(this);
  view_ = view;
  if (view_) {
    view_->view().setFrame(frameOf({position(), size()}));
    connect(view_, &PanelOutlet::changed, this, [this] { update(); });
  }
  update();
  emit viewChanged();
}

void DrawnView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
  if (view_) view_->view().setFrame(frameOf(newGeometry));
  update();
}

void DrawnView::paint(QPainter* painter) {
  if (!view_) return;
  CanvasPainter canvas(*painter);
  view_->view().drawRect(canvas, view_->view().bounds());
}

}  // namespace wayfell
