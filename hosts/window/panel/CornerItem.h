// The item of the panel's corner, which its view draws.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

#include "hosts/window/panel/PanelAdapter.h"
#include "platform/UICanvas.h"

namespace wayfell {

QColor colorOf(const UIColor& color);

class CornerItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Corner)
  Q_PROPERTY(wayfell::PanelAdapter* panel MEMBER panel_ WRITE setPanel REQUIRED)
  /// Pixels to the point.
  Q_PROPERTY(double unit MEMBER unit_ WRITE setUnit REQUIRED)

 public:
  explicit CornerItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  void setPanel(PanelAdapter* panel);
  void setUnit(double unit);
  void paint(QPainter* painter) override;

 protected:
  /// The view gets the item's size, and so draws within it.
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  void takeSize();

  PanelAdapter* panel_ = nullptr;
  double unit_ = 1;
};

}  // namespace wayfell
