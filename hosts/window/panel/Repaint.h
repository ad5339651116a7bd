// Painting an item anew when something of it changes.
#pragma once

#include <QQuickPaintedItem>

namespace wayfell {

template <class Value>
void changeAndRepaint(QQuickPaintedItem& item, Value& value, const Value& newValue) {
  if (value == newValue) return;
  value = newValue;
  item.update();
}

}  // namespace wayfell
