// One view of the panel as interface files see it.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <string_view>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

class PanelOutlet : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool hidden READ hidden NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QString lines READ lines NOTIFY changed)
  Q_PROPERTY(QString spoken READ spoken NOTIFY changed)
  Q_PROPERTY(bool bold READ bold NOTIFY changed)
  Q_PROPERTY(bool centered READ centered NOTIFY changed)
  Q_PROPERTY(double cornerRadius READ cornerRadius NOTIFY changed)
  Q_PROPERTY(double borderWidth READ borderWidth NOTIFY changed)
  Q_PROPERTY(QColor borderColor READ borderColor NOTIFY changed)
  Q_PROPERTY(double rotation READ rotation NOTIFY changed)
  Q_PROPERTY(int turnDuration READ turnDuration NOTIFY turnDurationChanged)

 public:
  /// The view of that name; the object gets the name too. The interface must live on.
  PanelOutlet(const WidgetInterface& interface, std::string_view name, QObject* parent);

  UIView& view() const { return view_; }

  bool hidden() const { return view_.hidden(); }
  /// Empty for what is no label.
  QString text() const;
  /// The text with each of two coordinates on a line of its own.
  QString lines() const;
  /// For those who hear the panel; empty for what has nothing to say.
  QString spoken() const;
  bool bold() const;
  bool centered() const;
  double cornerRadius() const { return view_.layer().cornerRadius; }
  double borderWidth() const { return view_.layer().borderWidth; }
  QColor borderColor() const;
  /// Degrees, clockwise.
  double rotation() const;
  /// Milliseconds that the turn to the present rotation takes; 0 for at once.
  int turnDuration() const { return turnDuration_; }

  /// Tells the bindings that the view has changed, by a turn of so many seconds or at once.
  void tellChanged(double turnSeconds = 0);

 signals:
  void changed();
  void turnDurationChanged();

 private:
  const UILabel* label() const { return dynamic_cast<const UILabel*>(&view_); }

  const WidgetInterface& interface_;
  std::string_view name_;
  UIView& view_;
  int turnDuration_ = 0;
};

}  // namespace wayfell
