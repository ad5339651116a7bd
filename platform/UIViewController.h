// The base of what owns a screenful of views.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/NSExtensionContext.h"
#include "platform/UIGeometry.h"

namespace wayfell {

class UIViewController {
 public:
  UIViewController() = default;
  virtual ~UIViewController() = default;
  UIViewController(const UIViewController&) = delete;
  UIViewController& operator=(const UIViewController&) = delete;

  /// The life cycle: load once, then appear and disappear any number of times.
  virtual void viewDidLoad() {}
  virtual void viewWillAppear(bool /*animated*/) {}
  virtual void viewWillDisappear(bool /*animated*/) {}
  virtual void didReceiveMemoryWarning() {}

  /// The size that the content would like; a width of 0 leaves the width to the host.
  const CGSize& preferredContentSize() const { return preferredContentSize_; }
  void setPreferredContentSize(const CGSize& size);
  /// For hosts: called after each change of the preferred size.
  void setSizeObserver(std::function<void()> onChange) { onSizeChange_ = std::move(onChange); }

  NSExtensionContext extensionContext() const { return {}; }

 private:
  CGSize preferredContentSize_;
  std::function<void()> onSizeChange_;
};

/// A weak hold on a view of the interface. Messages to a view that the interface lacks are
/// dropped, so a host that shows less loses nothing else.
template <class View>
class Outlet {
 public:
  Outlet() = default;
  Outlet(const std::shared_ptr<View>& view) : view_(view) {}

  std::shared_ptr<View> lock() const { return view_.lock(); }

  template <class Method, class... Arguments>
  void send(Method method, Arguments&&... arguments) const {
    if (const auto view = view_.lock()) {
      std::invoke(method, *view, std::forward<Arguments>(arguments)...);
    }
  }

 private:
  std::weak_ptr<View> view_;
};

}  // namespace wayfell
