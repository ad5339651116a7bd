// The panel's few pictures, drawn to the size of their item.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace wayfell {

class ShapeItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Shape)
  Q_PROPERTY(Shape shape MEMBER shape_ NOTIFY changed)
  /// Degrees, clockwise around the middle. Painted so, the edges stay smooth.
  Q_PROPERTY(double turn MEMBER turn_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(QColor secondColor MEMBER secondColor_ NOTIFY changed)
  /// Only its outline, as what it shows is old or not known yet.
  Q_PROPERTY(bool hollow MEMBER hollow_ NOTIFY changed)

 public:
  // Interface files see enumerators with a capital only.
  // NOLINTBEGIN(readability-identifier-naming)
  enum Shape {
    Mark,        ///< a triangle that points down
    Disclosure,  ///< an open angle that points to the right
    Dial,        ///< a ring, open at the top for a letter, with a line at every other 30 degrees
    Needle,      ///< the half that points up in the color, the other one in the second color
    Arrow,       ///< broad and notched, points up
    Flag,        ///< on its pole
  };
  // NOLINTEND(readability-identifier-naming)
  Q_ENUM(Shape)

  explicit ShapeItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {
    connect(this, &ShapeItem::changed, this, [this] { update(); });
  }

  void paint(QPainter* painter) override;

 signals:
  void changed();

 private:
  Shape shape_ = Mark;
  double turn_ = 0;
  QColor color_;
  QColor secondColor_;
  bool hollow_ = false;
};

}  // namespace wayfell
