// One view of the panel as interface files see it.
#pragma once

#include <QObject>
#include <QString>

#include "platform/UILabel.h"

namespace wayfell {

class PanelOutlet : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool hidden READ hidden NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(double rotation READ rotation NOTIFY changed)
  Q_PROPERTY(int rotationDuration READ rotationDuration NOTIFY changed)

 public:
  PanelOutlet(const UIView& view, QObject* parent) : QObject(parent), view_(view) { take(); }

  bool hidden() const { return hidden_; }
  /// Empty for what is no label.
  const QString& text() const { return text_; }
  /// Degrees, clockwise.
  double rotation() const { return rotation_; }
  /// Milliseconds that the turn to the present rotation takes, with an eased end; 0 for at once.
  int rotationDuration() const { return rotationDuration_; }

  /// Takes over what the view now shows.
  void take();
  /// Besides, its turn is to be seen.
  void take(const UIViewAnimation& animation);

 signals:
  void changed();

 private:
  const UIView& view_;
  bool hidden_ = false;
  QString text_;
  double rotation_ = 0;
  int rotationDuration_ = 0;
};

}  // namespace wayfell
