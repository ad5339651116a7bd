// The widget's interface: every view of the panel, made and connected to the controller's outlets.
//
// It owns the views, which the controller holds weakly, so keep it for as long as the panel shows.
// Views go by the names of their outlets. Hosts read the views and act on them as the user would:
//
//   const auto controller = std::make_shared<TodayViewController>();
//   WidgetInterface interface(controller);
//   controller->viewDidLoad();
//   interface.label("altitudeLabel").text();
//   interface.tap("toggleViewButton");
#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "widget/TodayViewController.h"

namespace wayfell {

class WidgetInterface {
 public:
  template <class View>
  struct Named {
    std::string_view name;
    std::shared_ptr<View> view;
  };

  /// The controller is not kept.
  explicit WidgetInterface(const std::shared_ptr<TodayViewController>& controller);

  /// In the order in which the controller declares them. "compassArrowView", the arrow within
  /// "compassRotatingView", follows that view.
  const std::vector<Named<UIView>>& views() const { return views_; }
  /// Those of them that are labels.
  const std::vector<Named<UILabel>>& labels() const { return labels_; }

  /// Throw std::out_of_range for a name that no view, or no label, has.
  UIView& view(std::string_view name) const;
  UILabel& label(std::string_view name) const;

  CompassView& compassRotatingView() const { return *compassRotatingView_; }
  UISegmentedControl& coordinateControl() const { return *coordinateControl_; }
  NSLayoutConstraint& leftConstraint() const { return *leftConstraint_; }

  /// What the controller would like its host to give it; a width of 0 is for the host to choose.
  CGSize preferredContentSize() const;

  /// The user taps a view, visible or not; "toggleViewButton" switches the layout.
  void tap(std::string_view name) const { view(name).tap(); }

 private:
  std::weak_ptr<TodayViewController> controller_;
  std::vector<Named<UIView>> views_;
  std::vector<Named<UILabel>> labels_;
  std::shared_ptr<CompassView> compassRotatingView_;
  std::shared_ptr<UISegmentedControl> coordinateControl_;
  std::shared_ptr<NSLayoutConstraint> leftConstraint_;
};

}  // namespace wayfell
