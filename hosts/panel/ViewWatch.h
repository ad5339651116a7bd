// Notices that something of the panel has changed.
#pragma once

#include <optional>
#include <utility>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

class ViewWatch : private UIViewObserver {
 public:
  /// The only observer of the interface's views, which must live on.
  explicit ViewWatch(const WidgetInterface& interface) : interface_(interface) {
    observe(this);
    interface_.views().leftConstraint.setObserver([this] { changed_ = true; });
  }
  ~ViewWatch() override {
    observe(nullptr);
    interface_.views().leftConstraint.setObserver(nullptr);
  }
  ViewWatch(const ViewWatch&) = delete;
  ViewWatch& operator=(const ViewWatch&) = delete;

  /// Whether something has changed since this was asked last; true at first.
  bool takeChanged() { return std::exchange(changed_, false); }
  /// The last change since this was asked last that may be shown as a motion.
  std::optional<UIViewAnimation> takeAnimation() { return std::exchange(animation_, std::nullopt); }

 private:
  void viewDidChange(UIView& /*view*/) override { changed_ = true; }
  void viewDidAnimate(UIView& /*view*/, const UIViewAnimation& animation) override {
    changed_ = true;
    animation_ = animation;
  }
  void observe(UIViewObserver* observer) const {
    for (const auto& named : interface_.named()) named.view->setObserver(observer);
  }

  const WidgetInterface& interface_;
  bool changed_ = true;
  std::optional<UIViewAnimation> animation_;
};

}  // namespace wayfell
