// Notices that something of a scene's panel has changed.
#pragma once

#include <optional>
#include <utility>

#include "hosts/scene/Scene.h"

namespace wayfell {

class ViewWatch : private UIViewObserver {
 public:
  /// The only observer of the scene's views. The scene must live on, and may get another panel at
  /// any time.
  explicit ViewWatch(const Scene& scene) : scene_(scene), watched_(scene.interface()) {
    observe(this);
  }
  ~ViewWatch() override { observe(nullptr); }
  ViewWatch(const ViewWatch&) = delete;
  ViewWatch& operator=(const ViewWatch&) = delete;

  /// Whether something has changed since this was asked last; true at first.
  bool takeChanged() {
    followScene();
    return std::exchange(changed_, false);
  }
  /// The last change since this was asked last that may be shown as a motion.
  std::optional<UIViewAnimation> takeAnimation() { return std::exchange(animation_, std::nullopt); }

 private:
  void viewDidChange(UIView& /*view*/) override { changed_ = true; }
  void viewDidAnimate(UIView& /*view*/, const UIViewAnimation& animation) override {
    changed_ = true;
    animation_ = animation;
  }
  void followScene() {
    if (&scene_.interface().views() == &watched_.views()) return;
    observe(nullptr);
    watched_ = scene_.interface();
    observe(this);
    changed_ = true;
    animation_.reset();
  }
  void observe(ViewWatch* observer) const {
    for (const auto& named : watched_.named()) named.view->setObserver(observer);
    watched_.views().leftConstraint.setObserver(
        observer ? std::function<void()>([observer] { observer->changed_ = true; }) : nullptr);
  }

  const Scene& scene_;
  WidgetInterface watched_;  // a copy, which keeps its views until they are no longer observed
  bool changed_ = true;
  std::optional<UIViewAnimation> animation_;
};

}  // namespace wayfell
