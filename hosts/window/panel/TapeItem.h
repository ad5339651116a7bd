// The compass tape: a strip of lettering that is painted once and slid.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QtQmlIntegration>

#include "hosts/panel/TapeReading.h"
#include "hosts/window/panel/Repaint.h"
#include "hosts/window/panel/TapeLayout.h"
#include "widget/CompassTape.h"

namespace wayfell {

class TapeItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(Tape)
  Q_PROPERTY(QString text MEMBER text_ WRITE setText)
  Q_PROPERTY(double pixelSize MEMBER pixelSize_ WRITE setPixelSize)
  Q_PROPERTY(QColor labelColor MEMBER labelColor_ WRITE setLabelColor)
  Q_PROPERTY(QColor dotColor MEMBER dotColor_ WRITE setDotColor)
  Q_PROPERTY(double top READ top CONSTANT)
  Q_PROPERTY(double north READ north CONSTANT)

 public:
  explicit TapeItem(QQuickItem* parent = nullptr);

  void setText(const QString& text) { changeAndRepaint(*this, text_, text); }
  /// At most; smaller where the labels would leave no room for the dots.
  void setPixelSize(double size) { changeAndRepaint(*this, pixelSize_, size); }
  void setLabelColor(const QColor& color) { changeAndRepaint(*this, labelColor_, color); }
  void setDotColor(const QColor& color) { changeAndRepaint(*this, dotColor_, color); }

  /// Points: how far above its frame's upper edge it begins, negative; and due north from its left.
  static double top() { return kTapeTop; }
  static double north() { return kTapeNorth; }

  void paint(QPainter* painter) override;

 private:
  QFont fittingFont(const TapeReading& tape) const;

  QString text_;
  double pixelSize_ = 11;
  QColor labelColor_;
  QColor dotColor_;
};

}  // namespace wayfell
