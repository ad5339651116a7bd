// The retained tree of views. A view holds what it shows and nothing about how; a host reads it.
//
// Setters tell the view's observer when something visible has changed, and are silent when the
// value is what it already was, so that a host repaints only what changed.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/UICanvas.h"
#include "platform/UIGeometry.h"

namespace wayfell {

class UIView;

/// A change that a host may show as a motion. The view already holds the final value.
struct UIViewAnimation {
  double duration = 0;  ///< seconds
  double delay = 0;     ///< seconds
  unsigned options = 0;
  CGAffineTransform from;
  CGAffineTransform to;
};

/// Options of an animation; combine them with `|`. The numbers are the platform's.
inline constexpr unsigned kAnimationOptionAllowUserInteraction = 1U << 1U;
inline constexpr unsigned kAnimationOptionCurveEaseOut = 2U << 16U;

class UIViewObserver {
 public:
  virtual ~UIViewObserver() = default;
  virtual void viewDidChange(UIView& view) = 0;
  /// Instead of viewDidChange for what changes inside an animation.
  virtual void viewDidAnimate(UIView& view, const UIViewAnimation& animation) = 0;
};

/// How the rectangle of a view is decorated.
struct CALayer {
  double cornerRadius = 0;  ///< points
  double borderWidth = 0;   ///< points
  UIColor borderColor = kBlackColor;
  friend bool operator==(const CALayer&, const CALayer&) = default;
};

/// Reports a tap on the view that it is added to.
class UITapGestureRecognizer {
 public:
  using Action = std::function<void(UITapGestureRecognizer*)>;
  explicit UITapGestureRecognizer(Action action) : action_(std::move(action)) {}
  void recognize() { action_(this); }

 private:
  Action action_;
};

class UIView {
 public:
  UIView() = default;
  virtual ~UIView() = default;
  UIView(const UIView&) = delete;
  UIView& operator=(const UIView&) = delete;

  /// Not owned; null for none.
  void setObserver(UIViewObserver* observer) { observer_ = observer; }

  bool hidden() const { return hidden_; }
  void setHidden(bool hidden) { change(hidden_, hidden); }

  /// In the superview's coordinates, untransformed.
  const CGRect& frame() const { return frame_; }
  void setFrame(const CGRect& frame) { change(frame_, frame); }
  /// The same rectangle in the view's own coordinates.
  CGRect bounds() const { return {{0, 0}, frame_.size}; }

  const CGAffineTransform& transform() const { return transform_; }
  void setTransform(const CGAffineTransform& transform);

  const CALayer& layer() const { return layer_; }
  void setLayer(const CALayer& layer) { change(layer_, layer); }

  void addGestureRecognizer(std::shared_ptr<UITapGestureRecognizer> recognizer);
  /// For hosts: the user has tapped the view.
  void tap();

  /// Draws what the view is besides its properties: nothing, unless overridden.
  virtual void drawRect(UICanvas& canvas, const CGRect& rect);

  /// Runs the changes at once and describes them to the observers as an animation.
  static void animateWithDurationDelayOptionsAnimationsCompletion(
      double duration, double delay, unsigned options, const std::function<void()>& animations,
      const std::function<void(bool finished)>& completion);

 protected:
  template <class Value, class NewValue>
  void change(Value& value, NewValue&& newValue) {
    if (value == newValue) return;
    value = std::forward<NewValue>(newValue);
    if (observer_) observer_->viewDidChange(*this);
  }

 private:
  UIViewObserver* observer_ = nullptr;
  bool hidden_ = false;
  CGRect frame_;
  CGAffineTransform transform_;
  CALayer layer_;
  std::vector<std::shared_ptr<UITapGestureRecognizer>> recognizers_;
};

class UIImageView : public UIView {};
class UIButton : public UIView {};
class UIVisualEffectView : public UIView {};

}  // namespace wayfell
