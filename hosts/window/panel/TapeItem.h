// The compass tape: a strip of lettering that is painted once and slid.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include "hosts/window/panel/PaintedItem.h"

namespace wayfell {

class TapeItem : public PaintedItem {
  Q_OBJECT
  Q_PROPERTY(QString text MEMBER text_ WRITE setText)
  Q_PROPERTY(double pixelSize MEMBER pixelSize_ WRITE setPixelSize)
  Q_PROPERTY(QColor labelColor MEMBER labelColor_ WRITE setLabelColor)
  Q_PROPERTY(QColor dotColor MEMBER dotColor_ WRITE setDotColor)

 public:
  explicit TapeItem(QQuickItem* parent = nullptr);

  void setText(const QString& text) { change(text_, text); }
  /// At most; smaller where the labels would leave no room for the dots.
  void setPixelSize(double size) { change(pixelSize_, size); }
  void setLabelColor(const QColor& color) { change(labelColor_, color); }
  void setDotColor(const QColor& color) { change(dotColor_, color); }

  void paint(QPainter* painter) override;

 private:
  QFont fittingFont() const;

  QString text_;
  double pixelSize_ = 11;
  QColor labelColor_;
  QColor dotColor_;
};

}  // namespace wayfell
