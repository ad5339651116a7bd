// Where the window stands: where the user has put it, moved as little as it takes to be seen.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace wayfell {

class WindowPlace {
 public:
  /// Begins with the one of an earlier run, if there is one.
  explicit WindowPlace(std::optional<QPoint> kept = std::nullopt) : chosen_(kept) {}

  /// The user, or who manages windows, has put it there. What of it is on no screen then may stay
  /// so.
  void put(const QRect& geometry);
  /// All of it is to be seen again.
  void bringBack() { put_ = {}; }
  /// Leaves so many other windows visible, of that size, which stand where this one would.
  void stepAside(int others, QSize size, const QList<QRect>& screens);

  /// Its upper left corner as it was put; none while nobody has.
  const std::optional<QPoint>& chosen() const { return chosen_; }
  /// That corner at a size. A window that grows over an edge moves away from it, and comes back
  /// when it shrinks.
  std::optional<QPoint> cornerFor(QSize size, const QList<QRect>& screens) const;

 private:
  std::optional<QPoint> chosen_;
  QRect put_;  // null for a place of an earlier run
};

}  // namespace wayfell
