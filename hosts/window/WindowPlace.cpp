#include "hosts/window/WindowPlace.h"

#include <algorithm>

namespace wayfell {
namespace {

constexpr int kTop = 40;   // points of a window's height that say on which screen it is
constexpr int kStep = 32;  // points, from one window to the next beside it

// What is larger than the area shows its upper left corner.
QPoint movedInto(const QRect& area, const QRect& window) {
  const QPoint last = area.bottomRight() - QPoint(window.width() - 1, window.height() - 1);
  return {std::max(area.left(), std::min(window.left(), last.x())),
          std::max(area.top(), std::min(window.top(), last.y()))};
}

// The one that has the window's top, or needs the least move to have it.
QRect screenOf(const QRect& window, const QList<QRect>& screens) {
  const QRect top(window.topLeft(), QSize(window.width(), kTop));
  const auto way = [&top](const QRect& screen) {
    return (movedInto(screen, top) - top.topLeft()).manhattanLength();
  };
  return *std::min_element(
      screens.begin(), screens.end(),
      [&way](const QRect& one, const QRect& other) { return way(one) < way(other); });
}

}  // namespace

void WindowPlace::put(const QRect& geometry) {
  chosen_ = geometry.topLeft();
  put_ = geometry;
}

void WindowPlace::stepAside(int others, QSize size, const QList<QRect>& screens) {
  const auto corner = cornerFor(size, screens);
  if (!corner || others == 0) return;
  const QRect window(*corner, size);
  const QPoint inwards = screenOf(window, screens).center() - window.center();
  chosen_ =
      *corner + others * QPoint(inwards.x() < 0 ? -kStep : kStep, inwards.y() < 0 ? -kStep : kStep);
}

std::optional<QPoint> WindowPlace::cornerFor(QSize size, const QList<QRect>& screens) const {
  if (!chosen_ || screens.isEmpty()) return chosen_;
  const QRect window(*chosen_, size);
  return movedInto(screenOf(window, screens).united(put_), window);
}

}  // namespace wayfell
