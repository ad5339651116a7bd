// Notices that some view of the panel has changed.
#pragma once

#include <utility>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

class ViewWatch : public UIViewObserver {
 public:
  /// The only observer of the interface's views, which must live on.
  explicit ViewWatch(const WidgetInterface& interface) : interface_(interface) { observe(this); }
  ~ViewWatch() override { observe(nullptr); }
  ViewWatch(const ViewWatch&) = delete;
  ViewWatch& operator=(const ViewWatch&) = delete;

  void viewDidChange(UIView& /*view*/) override { changed_ = true; }
  /// Who watches so sees no picture between the first and the last one.
  void viewDidAnimate(UIView& /*view*/, const UIViewAnimation& /*animation*/) override {
    changed_ = true;
  }

  /// Whether one has changed since this was asked last.
  bool takeChanged() { return std::exchange(changed_, false); }

 private:
  void observe(UIViewObserver* observer) const {
    for (const auto& named : interface_.views()) named.view->setObserver(observer);
  }

  const WidgetInterface& interface_;
  bool changed_ = false;
};

}  // namespace wayfell
