// Life cycle, layouts, and opening the containing app.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "Widget.h"

namespace wayfell {
namespace {

using testing::ElementsAre;

double height(const Widget& w) { return w.controller->preferredContentSize().height; }
double rotation(const Widget& w) {
  return w.controller->toggleViewButton.lock()->transform().rotation;
}

TEST(Layout, TheStoredOneIsApplied) {
  Widget w;
  w.host.suite.set("viewHidden", true);
  w.host.suite.set("hasWaypoint", true);
  w.host.suite.set("widgetAddressString", "12 Main St, Springfield, IL");
  w.host.suite.set("useMils", true);
  w.host.suite.set("coordinateUnits", "3");  // a text's leading number
  w.appear();
  const TodayViewController& c = *w.controller;
  EXPECT_EQ(height(w), 78);
  EXPECT_EQ(rotation(w), 0);
  EXPECT_TRUE(Widget::hidden(c.compassRotatingView));
  EXPECT_TRUE(Widget::hidden(c.compassArrowImageView));
  EXPECT_FALSE(Widget::hidden(c.miniTrackDataView));
  // Applying a layout leaves the waypoint's row as the appearance set it, even the compact one.
  EXPECT_FALSE(Widget::hidden(c.waypointDataView));
  EXPECT_EQ(Widget::text(c.addressLabel), "12 Main St, Springfield, IL");
  EXPECT_EQ(Widget::text(c.compassLabel)->substr(0, 12), "...5600.....");
  EXPECT_EQ(c.coordinateControl.lock()->selectedSegmentIndex(), 3);
  EXPECT_EQ(*w.host.local.find("useMils"), PropertyValue(1));
  EXPECT_EQ(*w.host.local.find("coordinateUnits"), PropertyValue(3));
}

// The containing app sets or drops the waypoint while the panel is shown.
TEST(Layout, TheToggleReadsTheWaypointAnew) {
  Widget w;
  w.appear();
  const TodayViewController& c = *w.controller;
  for (const bool hasWaypoint : {true, false}) {
    w.host.suite.set("hasWaypoint", hasWaypoint);
    w.controller->toggleView(nullptr);
    w.controller->toggleView(nullptr);
    EXPECT_EQ(Widget::hidden(c.waypointDataView), !hasWaypoint);
    EXPECT_EQ(c.compassRotatingView.lock()->compassArrowView()->hidden(), !hasWaypoint);
  }
}

// The panel shrinks before its contents go, and grows after they have come.
TEST(Layout, TheSizeChangesFirstWhenShrinkingAndLastWhenGrowing) {
  Widget w;
  w.appear();
  std::vector<bool> trackRowsHidden;
  w.controller->setSizeObserver(
      [&] { trackRowsHidden.push_back(Widget::hidden(w.controller->trackDataView)); });
  w.controller->toggleView(nullptr);
  w.controller->toggleView(nullptr);
  EXPECT_THAT(trackRowsHidden, ElementsAre(false, false));
}

TEST(Lifecycle, TimersKeepTheControllerAliveAndNothingElseDoes) {
  SimulatedHost host;
  auto controller = std::make_shared<TodayViewController>();
  std::weak_ptr<TodayViewController> watch = controller;
  controller->viewDidLoad();
  controller.reset();
  EXPECT_TRUE(watch.expired());

  controller = std::make_shared<TodayViewController>();
  watch = controller;
  controller->viewDidLoad();
  controller->viewWillAppear(false);
  controller.reset();
  EXPECT_FALSE(watch.expired());
  host.loop.cancelAllTimers();
  EXPECT_TRUE(watch.expired());
}

// A host may show less, or nothing: the rest works on.
TEST(Lifecycle, RunsWithoutAnyView) {
  SimulatedHost host;
  const auto controller = std::make_shared<TodayViewController>();
  controller->viewDidLoad();
  controller->viewWillAppear(false);
  const CLLocation fix = {{}, 0, 5, -1, -1, -1, {}};
  host.location.deliver({fix});
  host.location.deliver(CLHeading{90, 90, 5});
  for (int units = -1; units < 6; ++units) controller->updateCurrentLocationDisplayWithUnits(units);
  controller->toggleView(nullptr);
  controller->openApp(nullptr);
  controller->openAppWithCoordinate();
  controller->changeCoordinateUnits(nullptr);
  controller->didReceiveMemoryWarning();
  host.loop.advanceBy(10);
  controller->viewWillDisappear(false);
  EXPECT_EQ(controller->currentLocation, fix);
  EXPECT_EQ(controller->lastCurrentLocation, fix);
  EXPECT_EQ(host.urls.requests.size(), 1U);
}

TEST(Open, ThePlaceIsNamedByItsAddress) {
  struct Case {
    std::optional<std::string> address;
    std::optional<std::string> url;
  };
  const Case cases[] = {
      {"A, B C", "wayfell://A__B_C/44.500000/-93.250000"},
      {"", "wayfell://Wayfell_Location/44.500000/-93.250000"},
      {std::nullopt, "wayfell://Wayfell_Location/44.500000/-93.250000"},
      {"Höhenweg 3, Alm", std::nullopt},  // not a URL, and nothing is escaped
  };
  for (const Case& c : cases) {
    Widget w;
    w.controller->addressLabel.lock()->setText(c.address);
    w.controller->currentLocation.emplace().coordinate = {44.5, -93.25};
    w.controller->openAppWithCoordinate();
    ASSERT_EQ(w.host.urls.requests.size(), 1U);
    const auto& url = w.host.urls.requests[0];
    EXPECT_EQ(url ? std::optional(url->absoluteString()) : std::nullopt, c.url);
  }
}

}  // namespace
}  // namespace wayfell
