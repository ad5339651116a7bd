#include "hosts/panel/WidgetInterface.h"

#include <type_traits>

namespace wayfell {
namespace {

struct Connector {
  TodayViewController& controller;
  const std::shared_ptr<PanelViews>& views;
  std::vector<WidgetInterface::Named>& named;

  template <class View, class Made>
  void operator()(std::string_view name, Outlet<View> TodayViewController::*outlet,
                  Made PanelViews::*member) const {
    Made& view = *views.*member;
    controller.*outlet = Outlet<View>(std::shared_ptr<View>(views, &view));
    if constexpr (std::is_same_v<Made, UILabel>) {
      named.push_back({name, &view, &view});
    } else {
      named.push_back({name, &view, nullptr});
    }
  }
};

}  // namespace

WidgetInterface::WidgetInterface(const std::shared_ptr<TodayViewController>& controller)
    : controller_(controller) {
  const Connector connect{*controller, views_, named_};
  using C = TodayViewController;
  using V = PanelViews;
  connect("compassView", &C::compassView, &V::compassView);
  connect("compassLabel", &C::compassLabel, &V::compassLabel);
  connect("headingLabel", &C::headingLabel, &V::headingLabel);
  connect("dataView", &C::dataView, &V::dataView);
  connect("altitudeLabel", &C::altitudeLabel, &V::altitudeLabel);
  connect("speedLabel", &C::speedLabel, &V::speedLabel);
  connect("timeLabel", &C::timeLabel, &V::timeLabel);
  connect("distanceLabel", &C::distanceLabel, &V::distanceLabel);
  connect("userCoordinateLabel", &C::userCoordinateLabel, &V::userCoordinateLabel);
  connect("utmZoneLabel", &C::utmZoneLabel, &V::utmZoneLabel);
  connect("cornerView", &C::cornerView, &V::cornerView);
  connect("compassRotatingView", &C::compassRotatingView, &V::compassRotatingView);
  named_.push_back(
      {"compassArrowView", views_->compassRotatingView.compassArrowView().get(), nullptr});
  connect("latLongLabel", &C::latLongLabel, &V::latLongLabel);
  connect("etaLabel", &C::etaLabel, &V::etaLabel);
  connect("waypointDistanceLabel", &C::waypointDistanceLabel, &V::waypointDistanceLabel);
  connect("altitudeNameLabel", &C::altitudeNameLabel, &V::altitudeNameLabel);
  connect("speedNameLabel", &C::speedNameLabel, &V::speedNameLabel);
  connect("waypointDistanceNameLabel", &C::waypointDistanceNameLabel,
          &V::waypointDistanceNameLabel);
  connect("etaNameLabel", &C::etaNameLabel, &V::etaNameLabel);
  connect("waypointDataView", &C::waypointDataView, &V::waypointDataView);
  connect("timeNameLabel", &C::timeNameLabel, &V::timeNameLabel);
  connect("distanceNameLabel", &C::distanceNameLabel, &V::distanceNameLabel);
  connect("trackDataView", &C::trackDataView, &V::trackDataView);
  connect("miniTimeNameLabel", &C::miniTimeNameLabel, &V::miniTimeNameLabel);
  connect("miniDistanceNameLabel", &C::miniDistanceNameLabel, &V::miniDistanceNameLabel);
  connect("miniTimeLabel", &C::miniTimeLabel, &V::miniTimeLabel);
  connect("miniDistanceLabel", &C::miniDistanceLabel, &V::miniDistanceLabel);
  connect("miniTrackDataView", &C::miniTrackDataView, &V::miniTrackDataView);
  connect("compassArrowImageView", &C::compassArrowImageView, &V::compassArrowImageView);
  connect("toggleViewButton", &C::toggleViewButton, &V::toggleViewButton);
  connect("openView", &C::openView, &V::openView);
  connect("openMiniView", &C::openMiniView, &V::openMiniView);
  connect("openLabel", &C::openLabel, &V::openLabel);
  connect("openMiniLabel", &C::openMiniLabel, &V::openMiniLabel);
  connect("addressLabel", &C::addressLabel, &V::addressLabel);
  connect("arrowImageView", &C::arrowImageView, &V::arrowImageView);
  connect("coordinateControl", &C::coordinateControl, &V::coordinateControl);
  controller->leftConstraint = std::shared_ptr<NSLayoutConstraint>(views_, &views_->leftConstraint);

  UIButton& toggle = views_->toggleViewButton;
  toggle.addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(
      [weakController = controller_, &toggle](const UITapGestureRecognizer*) {
        if (const auto strong = weakController.lock()) strong->toggleView(&toggle);
      }));
}

CGSize WidgetInterface::preferredContentSize() const {
  const auto controller = controller_.lock();
  return controller ? controller->preferredContentSize() : CGSize{};
}

}  // namespace wayfell
