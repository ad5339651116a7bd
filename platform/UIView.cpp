#include "platform/UIView.h"

namespace wayfell {
namespace {

// The animation whose changes are running; null outside of one.
const UIViewAnimation* runningAnimation = nullptr;

}  // namespace

void UIView::setTransform(const CGAffineTransform& transform) {
  if (!runningAnimation) {
    change(transform_, transform);
    return;
  }
  if (transform_ == transform) return;
  UIViewAnimation animation = *runningAnimation;
  animation.from = transform_;
  animation.to = transform;
  transform_ = transform;
  if (observer_) observer_->viewDidAnimate(*this, animation);
}

void UIView::addGestureRecognizer(std::shared_ptr<UITapGestureRecognizer> recognizer) {
  recognizers_.push_back(std::move(recognizer));
}

void UIView::tap() {
  // A copy: an action may change the view's recognizers.
  const auto recognizers = recognizers_;
  for (const auto& recognizer : recognizers) recognizer->recognize();
}

void UIView::drawRect(UICanvas& /*canvas*/, const CGRect& /*rect*/) {}

void UIView::animateWithDurationDelayOptionsAnimationsCompletion(
    double duration, double delay, unsigned options, const std::function<void()>& animations,
    const std::function<void(bool finished)>& completion) {
  const UIViewAnimation animation{duration, delay, options, {}, {}};
  runningAnimation = &animation;
  animations();
  runningAnimation = nullptr;
  completion(true);
}

}  // namespace wayfell
