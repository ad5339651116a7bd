#include "hosts/panel/WidgetInterface.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "widget/CornerView.h"

namespace wayfell {
namespace {

constexpr std::size_t kCoordinateFormats = 5;

template <class View>
View& named(const std::vector<WidgetInterface::Named<View>>& views, std::string_view name) {
  const auto found = std::find_if(views.begin(), views.end(),
                                  [name](const auto& entry) { return entry.name == name; });
  if (found == views.end()) throw std::out_of_range("no such view: " + std::string(name));
  return *found->view;
}

struct Connector {
  TodayViewController& controller;
  std::vector<WidgetInterface::Named<UIView>>& views;
  std::vector<WidgetInterface::Named<UILabel>>& labels;

  template <class Made, class View, class... Arguments>
  std::shared_ptr<Made> outlet(std::string_view name, Outlet<View> TodayViewController::*member,
                               Arguments... arguments) const {
    auto view = std::make_shared<Made>(arguments...);
    controller.*member = Outlet<View>(view);
    views.push_back({name, view});
    if constexpr (std::is_same_v<Made, UILabel>) labels.push_back({name, view});
    return view;
  }
};

}  // namespace

WidgetInterface::WidgetInterface(const std::shared_ptr<TodayViewController>& controller)
    : controller_(controller) {
  const Connector connect{*controller, views_, labels_};
  using C = TodayViewController;
  connect.outlet<UIView>("compassView", &C::compassView);
  connect.outlet<UILabel>("compassLabel", &C::compassLabel);
  connect.outlet<UILabel>("headingLabel", &C::headingLabel);
  connect.outlet<UIView>("dataView", &C::dataView);
  connect.outlet<UILabel>("altitudeLabel", &C::altitudeLabel);
  connect.outlet<UILabel>("speedLabel", &C::speedLabel);
  connect.outlet<UILabel>("timeLabel", &C::timeLabel);
  connect.outlet<UILabel>("distanceLabel", &C::distanceLabel);
  connect.outlet<UILabel>("userCoordinateLabel", &C::userCoordinateLabel);
  connect.outlet<UILabel>("utmZoneLabel", &C::utmZoneLabel);
  connect.outlet<CornerView>("cornerView", &C::cornerView);
  compassRotatingView_ =
      connect.outlet<CompassView>("compassRotatingView", &C::compassRotatingView);
  views_.push_back({"compassArrowView", compassRotatingView_->compassArrowView()});
  connect.outlet<UILabel>("latLongLabel", &C::latLongLabel);
  connect.outlet<UILabel>("etaLabel", &C::etaLabel);
  connect.outlet<UILabel>("waypointDistanceLabel", &C::waypointDistanceLabel);
  connect.outlet<UILabel>("altitudeNameLabel", &C::altitudeNameLabel);
  connect.outlet<UILabel>("speedNameLabel", &C::speedNameLabel);
  connect.outlet<UILabel>("waypointDistanceNameLabel", &C::waypointDistanceNameLabel);
  connect.outlet<UILabel>("etaNameLabel", &C::etaNameLabel);
  connect.outlet<UIView>("waypointDataView", &C::waypointDataView);
  connect.outlet<UILabel>("timeNameLabel", &C::timeNameLabel);
  connect.outlet<UILabel>("distanceNameLabel", &C::distanceNameLabel);
  connect.outlet<UIView>("trackDataView", &C::trackDataView);
  connect.outlet<UILabel>("miniTimeNameLabel", &C::miniTimeNameLabel);
  connect.outlet<UILabel>("miniDistanceNameLabel", &C::miniDistanceNameLabel);
  connect.outlet<UILabel>("miniTimeLabel", &C::miniTimeLabel);
  connect.outlet<UILabel>("miniDistanceLabel", &C::miniDistanceLabel);
  connect.outlet<UIView>("miniTrackDataView", &C::miniTrackDataView);
  connect.outlet<UIImageView>("compassArrowImageView", &C::compassArrowImageView);
  const auto toggle = connect.outlet<UIButton>("toggleViewButton", &C::toggleViewButton);
  connect.outlet<UIVisualEffectView>("openView", &C::openView);
  connect.outlet<UIVisualEffectView>("openMiniView", &C::openMiniView);
  connect.outlet<UILabel>("openLabel", &C::openLabel);
  connect.outlet<UILabel>("openMiniLabel", &C::openMiniLabel);
  connect.outlet<UILabel>("addressLabel", &C::addressLabel);
  leftConstraint_ = std::make_shared<NSLayoutConstraint>();
  controller->leftConstraint = leftConstraint_;
  connect.outlet<UIImageView>("arrowImageView", &C::arrowImageView);
  coordinateControl_ = connect.outlet<UISegmentedControl>(
      "coordinateControl", &C::coordinateControl, kCoordinateFormats);

  toggle->addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(
      [weakController = controller_, button = toggle.get()](const UITapGestureRecognizer*) {
        if (const auto strong = weakController.lock()) strong->toggleView(button);
      }));
}

CGSize WidgetInterface::preferredContentSize() const {
  const auto controller = controller_.lock();
  return controller ? controller->preferredContentSize() : CGSize{};
}

UIView& WidgetInterface::view(std::string_view name) const { return named(views_, name); }
UILabel& WidgetInterface::label(std::string_view name) const { return named(labels_, name); }

}  // namespace wayfell
