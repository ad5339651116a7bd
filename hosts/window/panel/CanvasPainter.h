// The canvas that views draw on, painted.
#pragma once

#include <QColor>

#include "platform/UICanvas.h"

class QPainter;

namespace wayfell {

QColor colorOf(const UIColor& color);

class CanvasPainter : public UICanvas {
 public:
  /// The painter must live on; one of its units is a point.
  explicit CanvasPainter(QPainter& painter) : painter_(painter) {}

  void setFillColor(const UIColor& color) override { fill_ = colorOf(color); }
  void fillPath(const UIBezierPath& path) override;

 private:
  QPainter& painter_;
  QColor fill_ = Qt::black;
};

}  // namespace wayfell
