// How the panel looks: what the shell chooses, and the colours that follow from it.
#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration>

namespace wayfell {

class PanelStyle : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The shell chooses it.")
  Q_PROPERTY(Theme theme READ theme WRITE setTheme NOTIFY changed)
  Q_PROPERTY(bool translucent READ translucent WRITE setTranslucent NOTIFY changed)
  Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY changed)
  Q_PROPERTY(double fontScale READ fontScale WRITE setFontScale NOTIFY changed)
  Q_PROPERTY(double width READ width WRITE setWidth NOTIFY changed)
  Q_PROPERTY(double unit READ unit NOTIFY changed)
  Q_PROPERTY(bool rightToLeft READ rightToLeft WRITE setRightToLeft NOTIFY changed)
  Q_PROPERTY(bool heavy READ heavy NOTIFY changed)
  Q_PROPERTY(QColor backing READ backing NOTIFY changed)
  Q_PROPERTY(QColor edge READ edge NOTIFY changed)
  Q_PROPERTY(QColor value READ value NOTIFY changed)
  Q_PROPERTY(QColor dim READ dim NOTIFY changed)
  Q_PROPERTY(QColor caption READ caption NOTIFY changed)
  Q_PROPERTY(QColor field READ field NOTIFY changed)
  Q_PROPERTY(QColor pointer READ pointer NOTIFY changed)
  Q_PROPERTY(QColor mark READ mark NOTIFY changed)
  Q_PROPERTY(QColor plate READ plate NOTIFY changed)
  Q_PROPERTY(QColor plateText READ plateText NOTIFY changed)
  Q_PROPERTY(QColor chosen READ chosen NOTIFY changed)
  Q_PROPERTY(QColor focus READ focus NOTIFY changed)

 public:
  enum Theme {
    dark,
    light,
    sunlight,  ///< the greatest contrast, never translucent
  };
  Q_ENUM(Theme)

  static constexpr double kGreatestFontScale = 2;
  /// Points.
  static constexpr double kNarrowest = 280;
  static constexpr double kUsualWidth = 359;

  using QObject::QObject;

  Theme theme() const { return theme_; }
  void setTheme(Theme theme) { change(theme_, theme); }

  /// Whether what is behind the window shines through; only where something composes windows.
  bool translucent() const { return translucent_; }
  void setTranslucent(bool translucent) { change(translucent_, translucent); }

  /// Nothing moves: what would turn stands at its end at once.
  bool reducedMotion() const { return reducedMotion_; }
  void setReducedMotion(bool reduced) { change(reducedMotion_, reduced); }

  /// How large letters are wished for, 1 for the panel's own; what is outside 1 to
  /// kGreatestFontScale becomes the nearest of these.
  double fontScale() const { return fontScale_; }
  void setFontScale(double scale);

  /// The panel's, in pixels; the panel sets it.
  double width() const { return width_; }
  void setWidth(double width) { change(width_, width); }

  /// Pixels to the panel's point. The panel grows as a whole: by as much as it is wider than
  /// usual, or else as is wished, as long as it keeps its least width; at most to twice its size.
  double unit() const;

  /// Captions at the right, as the user's language has it.
  bool rightToLeft() const { return rightToLeft_; }
  void setRightToLeft(bool rightToLeft) { change(rightToLeft_, rightToLeft); }

  /// Whether all fresh values are bold.
  bool heavy() const { return theme_ == sunlight; }

  /// The text as it is to be drawn, with its numbers isolated (DisplayedText.h).
  Q_INVOKABLE static QString isolated(const QString& text);
  /// The width of a text in letters of one point.
  Q_INVOKABLE static double widthAtOnePoint(const QString& text, bool bold);

  /// Behind everything; the only colour that may let something shine through.
  QColor backing() const;
  QColor edge() const;       ///< of the panel
  QColor value() const;      ///< numbers and addresses
  QColor dim() const;        ///< values that are old or not known yet
  QColor caption() const;    ///< names of values, dots and lines of the compass
  QColor field() const;      ///< behind the tape and behind formats that are not chosen
  QColor pointer() const;    ///< the arrow to the waypoint
  QColor mark() const;       ///< the heading's mark and the needle's north end
  QColor plate() const;      ///< behind what is to be tapped
  QColor plateText() const;  ///< on a plate
  QColor chosen() const;     ///< behind the chosen format
  QColor focus() const;      ///< around what has the keyboard

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
  double width_ = kUsualWidth;
  bool rightToLeft_ = false;
};

}  // namespace wayfell
