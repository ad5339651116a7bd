// Life cycle, layouts, and opening the containing app.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "Widget.h"
#include "widget/CornerView.h"

namespace wayfell {
namespace {

using testing::ElementsAre;

constexpr double kQuarterTurn = 1.5707963267948966;

double height(const Widget& w) { return w.controller->preferredContentSize().height; }
double rotation(const Widget& w) {
  return w.controller->toggleViewButton.lock()->transform().rotation;
}

TEST(Layout, FirstRunIsExpandedAndWithoutAWaypoint) {
  Widget w;
  w.appear();
  const TodayViewController& c = *w.controller;
  EXPECT_EQ(c.preferredContentSize(), (CGSize{0, 286}));
  EXPECT_EQ(rotation(w), kQuarterTurn);
  EXPECT_EQ(Widget::text(c.compassLabel)->substr(0, 12), "...315......");
  EXPECT_EQ(Widget::text(c.latLongLabel), "Latitude\nLongitude");
  EXPECT_EQ(Widget::text(c.openMiniLabel), "Open");
  EXPECT_EQ(Widget::text(c.addressLabel), std::nullopt);
  EXPECT_EQ(Widget::text(c.userCoordinateLabel), std::nullopt);
  EXPECT_EQ(Widget::text(c.etaLabel), "");
  EXPECT_EQ(c.coordinateControl.lock()->selectedSegmentIndex(), 0);
  EXPECT_EQ(c.coordinateControl.lock()->titleForSegmentAtIndex(2), "DMs");
  EXPECT_EQ(UISegmentedControl::selectedTitleColor(), kBlackColor);
  EXPECT_EQ(c.compassView.lock()->layer(), (CALayer{4, 1, kBlackColor}));
  EXPECT_EQ(c.openView.lock()->layer().cornerRadius, 4);
  EXPECT_TRUE(Widget::hidden(c.waypointDataView));
  EXPECT_TRUE(c.compassRotatingView.lock()->compassArrowView()->hidden());
  EXPECT_TRUE(Widget::hidden(c.miniTrackDataView));
  EXPECT_FALSE(Widget::hidden(c.trackDataView));
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
  EXPECT_TRUE(Widget::hidden(c.trackDataView));
  EXPECT_FALSE(Widget::hidden(c.miniTrackDataView));
  // Applying a layout leaves the waypoint's row as the appearance set it, even the compact one.
  EXPECT_FALSE(Widget::hidden(c.waypointDataView));
  EXPECT_EQ(Widget::text(c.addressLabel), "12 Main St, Springfield, IL");
  EXPECT_EQ(Widget::text(c.compassLabel)->substr(0, 12), "...5600.....");
  EXPECT_EQ(c.coordinateControl.lock()->selectedSegmentIndex(), 3);
  EXPECT_EQ(*w.host.local.find("useMils"), PropertyValue(1));
  EXPECT_EQ(*w.host.local.find("coordinateUnits"), PropertyValue(3));
}

TEST(Layout, TheToggleFlipsItAndStoresIt) {
  Widget w;
  w.host.suite.set("hasWaypoint", true);
  w.appear();
  const TodayViewController& c = *w.controller;
  w.controller->toggleView(c.toggleViewButton.lock().get());
  EXPECT_EQ(height(w), 78);
  EXPECT_EQ(rotation(w), 0);
  EXPECT_TRUE(Widget::hidden(c.waypointDataView));
  EXPECT_FALSE(c.compassRotatingView.lock()->compassArrowView()->hidden());
  EXPECT_EQ(*w.host.suite.find("viewHidden"), PropertyValue(true));

  w.host.suite.set("hasWaypoint", false);  // the containing app drops the waypoint meanwhile
  w.controller->toggleView(c.toggleViewButton.lock().get());
  EXPECT_EQ(height(w), 286);
  EXPECT_EQ(rotation(w), kQuarterTurn);
  EXPECT_TRUE(Widget::hidden(c.waypointDataView));
  EXPECT_TRUE(c.compassRotatingView.lock()->compassArrowView()->hidden());
  EXPECT_EQ(*w.host.suite.find("viewHidden"), PropertyValue(false));
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

TEST(Lifecycle, EachAppearanceAddsATimerAndNoneEnds) {
  Widget w;
  w.controller->viewDidLoad();
  EXPECT_EQ(w.host.loop.timersWithInterval(0.5), 0U);
  for (int i = 0; i < 3; ++i) {
    w.controller->viewWillAppear(false);
    w.controller->viewWillDisappear(false);
  }
  EXPECT_EQ(w.host.loop.timersWithInterval(0.5), 3U);
  // The tick goes on off screen and reads the shared store afresh.
  w.host.suite.set("time", 3600.0);
  w.host.loop.advanceBy(0.5);
  EXPECT_EQ(Widget::text(w.controller->miniTimeLabel), "1:00:00");
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

TEST(Lifecycle, HeadingsDoNotComeBack) {
  Widget w;
  w.appear();
  EXPECT_TRUE(w.host.location.updatingHeading());
  EXPECT_TRUE(w.host.location.updatingLocation());
  w.controller->viewWillDisappear(false);
  EXPECT_FALSE(w.host.location.updatingHeading());
  EXPECT_FALSE(w.host.location.updatingLocation());
  w.controller->viewWillAppear(false);
  EXPECT_FALSE(w.host.location.updatingHeading());
  EXPECT_TRUE(w.host.location.updatingLocation());
}

TEST(Lifecycle, UpdatesWaitForAuthorization) {
  struct Case {
    CLAuthorizationStatus status;
    bool updating;
    int requests;
  };
  for (const Case& c : {Case{CLAuthorizationStatus::notDetermined, false, 1},
                        Case{CLAuthorizationStatus::restricted, false, 0},
                        Case{CLAuthorizationStatus::denied, false, 0},
                        Case{CLAuthorizationStatus::authorizedAlways, true, 0},
                        Case{CLAuthorizationStatus::authorizedWhenInUse, true, 0}}) {
    Widget w;
    w.host.location.status = c.status;
    w.appear();
    EXPECT_EQ(w.host.location.updatingLocation(), c.updating);
    EXPECT_EQ(w.host.location.authorizationRequests(), c.requests);
    EXPECT_TRUE(w.host.location.updatingHeading());  // asks no one
  }
}

// A host may show less, or nothing: the rest works on.
TEST(Lifecycle, RunsWithoutAnyView) {
  SimulatedHost host;
  const auto controller = std::make_shared<TodayViewController>();
  controller->viewDidLoad();
  controller->viewWillAppear(false);
  CLLocation fix;
  fix.horizontalAccuracy = 5;
  host.location.deliver({fix});
  host.location.deliver(CLHeading{90, 90, 5});
  for (int units = -1; units < 6; ++units) controller->updateCurrentLocationDisplayWithUnits(units);
  controller->toggleView(nullptr);
  controller->openAppWithCoordinate();
  controller->changeCoordinateUnits(nullptr);
  controller->didReceiveMemoryWarning();
  host.loop.advanceBy(10);
  controller->viewWillDisappear(false);
  EXPECT_EQ(controller->currentLocation, fix);
  EXPECT_EQ(controller->lastCurrentLocation, fix);
  EXPECT_EQ(host.urls.requests.size(), 1U);
}

TEST(Open, ATapOnEitherCaptionOpensTheApp) {
  Widget w;
  w.appear();
  w.controller->openLabel.lock()->tap();
  w.controller->openMiniLabel.lock()->tap();
  w.controller->openApp(nullptr);
  const auto front = NSURL::URLWithString("wayfell://openFromWidget");
  EXPECT_THAT(w.host.urls.requests, ElementsAre(front, front));
}

TEST(Open, ThePlaceIsNamedByItsAddress) {
  struct Case {
    std::optional<std::string> address;
    std::optional<std::string> url;
  };
  const Case cases[] = {
      {"12 Main St, Springfield, IL", "wayfell://12_Main_St__Springfield__IL/44.500000/-93.250000"},
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

TEST(Segments, APickShowsTheFormatUntilTheNextAppearance) {
  Widget w;
  w.appear();
  UISegmentedControl& control = *w.controller->coordinateControl.lock();
  control.pick(4);
  // Before the first fix the position is 0/0. Zone 31 is central on 3 degrees east, and the
  // equator reads S. Easting worked from the series' formulas with p = -3 degrees.
  EXPECT_EQ(Widget::text(w.controller->userCoordinateLabel), "31 S 166021.5mE 0.0mN");
  EXPECT_EQ(*w.host.local.find("coordinateUnits"), PropertyValue(4));
  EXPECT_EQ(w.host.suite.find("coordinateUnits"), nullptr);
  control.pick(0);
  EXPECT_EQ(Widget::text(w.controller->userCoordinateLabel), "0.00000°S, 0.00000°W");
  control.pick(2);
  w.controller->viewWillAppear(false);
  EXPECT_EQ(control.selectedSegmentIndex(), 0);
}

class Paper : public UICanvas {
 public:
  void setFillColor(const UIColor& newColor) override { color = newColor; }
  void fillPath(const UIBezierPath& path) override { paths.push_back(path); }
  UIColor color;
  std::vector<UIBezierPath> paths;
};

TEST(CornerView, FillsItsBoundsRoundedAtTwoCorners) {
  Paper paper;
  CornerView view;
  view.setFrame({{7, 9}, {100, 40}});
  view.drawRect(paper, {});
  EXPECT_EQ(paper.color, (UIColor{0, 0, 0, 0.5}));
  EXPECT_THAT(paper.paths, ElementsAre(UIBezierPath{{{0, 0}, {100, 40}}, 9, {4, 4}}));
}

}  // namespace
}  // namespace wayfell
