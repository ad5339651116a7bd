// The compass tape: a strip of lettering that is painted once and slid. What is under the mark is
// the heading: the middle of each label is on its degree, and the dots are spread evenly between.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQmlIntegration>

#include "hosts/panel/TapeReading.h"
#include "widget/CompassTape.h"

namespace wayfell {

class TapeItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Tape)
  Q_PROPERTY(QString text MEMBER text_ NOTIFY changed)
  /// Of the letters, in points; smaller where the labels would leave no room for the dots.
  Q_PROPERTY(double letterSize MEMBER letterSize_ NOTIFY changed)
  /// Pixels to the point.
  Q_PROPERTY(double unit MEMBER unit_ NOTIFY changed)
  Q_PROPERTY(QColor labelColor MEMBER labelColor_ NOTIFY changed)
  Q_PROPERTY(QColor dotColor MEMBER dotColor_ NOTIFY changed)
  /// Points: how far above its frame begins; and due north of an unmoved
  /// tape from its left, which is where the mark is over the frame.
  Q_PROPERTY(double rise READ rise CONSTANT)
  Q_PROPERTY(double north READ north CONSTANT)

 public:
  explicit TapeItem(QQuickItem* parent = nullptr);

  static double rise() { return -kTapeTop; }
  static double north();

  void paint(QPainter* painter) override;

 signals:
  void changed();

 private:
  QFont fittingFont(const TapeReading& tape) const;

  QString text_;
  double letterSize_ = 11;
  double unit_ = 1;
  QColor labelColor_;
  QColor dotColor_;
};

}  // namespace wayfell
