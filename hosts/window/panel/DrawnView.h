// An item that shows what its view draws.
#pragma once

#include <QQuickPaintedItem>

#include "hosts/window/panel/PanelOutlet.h"

namespace wayfell {

class DrawnView : public QQuickPaintedItem {
  Q_OBJECT
  Q_PROPERTY(wayfell::PanelOutlet* view READ view WRITE setView NOTIFY viewChanged)

 public:
  explicit DrawnView(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  PanelOutlet* view() const { return view_; }
  void setView(PanelOutlet* view);
  void paint(QPainter* painter) override;

 signals:
  void viewChanged();

 protected:
  /// The view gets the item's size, and so draws within it.
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  PanelOutlet* view_ = nullptr;
};

}  // namespace wayfell
