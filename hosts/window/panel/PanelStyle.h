// How the panel looks: what the shell chooses, and the colours that follow from it.
#pragma once

#include <QColor>
#include <QObject>

namespace wayfell {

class PanelStyle : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY changed)
  Q_PROPERTY(double fontScale READ fontScale WRITE setFontScale NOTIFY changed)
  Q_PROPERTY(bool rightToLeft READ rightToLeft WRITE setRightToLeft NOTIFY changed)

 public:
  enum Theme {
    dark,
    light,
    sunlight,  ///< the greatest contrast, never translucent
  };
  Q_ENUM(Theme)

  static constexpr double kGreatestFontScale = 2;

  using QObject::QObject;

  Theme theme() const { return theme_; }
  void setTheme(Theme theme) { change(theme_, theme); }

  /// Whether what is behind the window shines through; only where something composes windows.
  bool translucent() const { return translucent_; }
  void setTranslucent(bool translucent) { change(translucent_, translucent); }

  /// Nothing moves: what would turn stands at its end at once.
  bool reducedMotion() const { return reducedMotion_; }
  void setReducedMotion(bool reduced) { change(reducedMotion_, reduced); }

  /// 1 is the panel's own; what is outside 1 to kGreatestFontScale becomes the nearest of these.
  double fontScale() const { return fontScale_; }
  void setFontScale(double scale);

  /// Captions at the right, as the user's language has it.
  bool rightToLeft() const { return rightToLeft_; }
  void setRightToLeft(bool rightToLeft) { change(rightToLeft_, rightToLeft); }

 signals:
  void changed();

 private:
  template <class Value>
  void change(Value& value, Value newValue) {
    if (value == newValue) return;
    value = newValue;
    emit changed();
  }

  Theme theme_ = dark;
  bool translucent_ = false;
  bool reducedMotion_ = false;
  double fontScale_ = 1;
  bool rightToLeft_ = false;
};

}  // namespace wayfell
