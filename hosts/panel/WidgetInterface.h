// The widget's interface: every view of the panel, made and connected to the controller's outlets.
//
// It owns the views, which the controller holds weakly, so keep it for as long as the panel shows.
// Hosts read the views and act on them as the user would:
//
//   const auto controller = std::make_shared<TodayViewController>();
//   WidgetInterface interface(controller);
//   controller->viewDidLoad();
//   interface.views().altitudeLabel.text();
//   interface.views().toggleViewButton.tap();
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "widget/CornerView.h"
#include "widget/TodayViewController.h"

namespace wayfell {

/// All views, each by the name of the controller's outlet for it.
struct PanelViews {
  static constexpr std::size_t kFormats = 5;  ///< of the position, a segment each

  UIView compassView, dataView, waypointDataView, trackDataView, miniTrackDataView;
  UILabel compassLabel, headingLabel;
  UILabel latLongLabel, userCoordinateLabel, utmZoneLabel;
  UILabel altitudeNameLabel, altitudeLabel, speedNameLabel, speedLabel;
  UILabel waypointDistanceNameLabel, waypointDistanceLabel, etaNameLabel, etaLabel;
  UILabel timeNameLabel, timeLabel, distanceNameLabel, distanceLabel;
  UILabel miniTimeNameLabel, miniTimeLabel, miniDistanceNameLabel, miniDistanceLabel;
  UILabel addressLabel, openLabel, openMiniLabel;
  UIVisualEffectView openView, openMiniView;
  UIButton toggleViewButton;
  UISegmentedControl coordinateControl{kFormats};
  CornerView cornerView;
  CompassView compassRotatingView;
  UIImageView arrowImageView, compassArrowImageView;
  NSLayoutConstraint leftConstraint;
};

class WidgetInterface {
 public:
  struct Named {
    std::string_view name;
    UIView* view;
    const UILabel* label;  ///< the same view, or null for what is no label
  };

  /// The controller is not kept.
  explicit WidgetInterface(const std::shared_ptr<TodayViewController>& controller);

  PanelViews& views() const { return *views_; }
  /// The views with their names, in the order in which the controller declares them.
  /// "compassArrowView", the arrow within "compassRotatingView", follows that view.
  const std::vector<Named>& named() const { return named_; }

  /// What the controller would like its host to give it; a width of 0 is for the host to choose.
  CGSize preferredContentSize() const;

 private:
  std::weak_ptr<TodayViewController> controller_;
  std::shared_ptr<PanelViews> views_ = std::make_shared<PanelViews>();
  std::vector<Named> named_;
};

}  // namespace wayfell
