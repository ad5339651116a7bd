// An item that is painted anew when a property of it changes.
#pragma once

#include <QQuickPaintedItem>

namespace wayfell {

class PaintedItem : public QQuickPaintedItem {
 protected:
  explicit PaintedItem(QQuickItem* parent) : QQuickPaintedItem(parent) {}

  template <class Value>
  void change(Value& value, const Value& newValue) {
    if (value == newValue) return;
    value = newValue;
    update();
  }
};

}  // namespace wayfell
