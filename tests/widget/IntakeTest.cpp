// What a fix, a heading and a lookup change.

#include <gtest/gtest.h>

#include <limits>

#include "Widget.h"

namespace wayfell {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Each row is one fix of a sequence; the means are worked by hand over the fixes below 200 m.
TEST(Intake, FixesAreScreenedByTheirAccuracy) {
  struct Fix {
    double horizontal, vertical;
    bool accepted;
  };
  const std::vector<std::vector<Fix>> sequences = {
      {{0, 5, false}, {-1, 5, false}, {kNaN, 5, false}, {5, kNaN, false}},
      {{50, 70, true}, {50.1, 5, true}},                               // mean 50.05
      {{47, 5, true}, {50.1, 5, false}},                               // mean 48.55
      {{48.2, 5, true}, {50.1, 5, true}},                              // mean 49.15
      {{5, 5, true}, {50.1, 5, false}},                                // mean 27.55
      {{150, 5, true}},                                                // alone, it is its own mean
      {{5, 5, true}, {150, 5, false}, {78, 5, true}, {90, 5, false}},  // means 77.5, 77.67, 80.75
      {{250, 5, false}},                  // not learnt, the mean is still 0
      {{5, -1, true}, {5, 70.1, false}},  // vertical mean (-1 + 70.1) / 2
      {{5, 90, true}, {5, 91, true}},     // vertical mean 90.5
  };
  for (const auto& sequence : sequences) {
    Widget w;
    w.appear();
    for (const Fix& fix : sequence) {
      w.controller->currentLocation.reset();
      w.fix(1, 1, 0, fix.horizontal, fix.vertical);
      EXPECT_EQ(w.controller->currentLocation.has_value(), fix.accepted)
          << fix.horizontal << " " << fix.vertical;
    }
  }
}

// One degree along the equator of the sphere is 6378137 x pi / 180 = 111319.49 m. The waypoint
// 0/0 of no waypoint counts too.
TEST(Intake, TheDistanceToTheWaypointIsShownEvenWithoutOne) {
  Widget w;
  w.host.suite.set("units", 1);
  w.appear();
  w.fix(0, 1);
  EXPECT_EQ(Widget::text(w.controller->waypointDistanceLabel), "111.32 km");
  EXPECT_TRUE(Widget::hidden(w.controller->waypointDataView));
  w.fix(0, 0.002);  // 222.64 m, below the threshold of 0.24 km
  EXPECT_EQ(Widget::text(w.controller->waypointDistanceLabel), "223 m");
  EXPECT_EQ(Widget::text(w.controller->userCoordinateLabel), "0.00000°S, 0.00200°E");
}

TEST(Heading, IsChosenBySetting) {
  struct Case {
    int compassHeading;
    CLHeading heading;
    std::optional<std::string> text;
  };
  const Case cases[] = {
      {0, {90, 87, 5}, "90°"},         {1, {90, 87, 5}, "87°"}, {2, {90, 87, 5}, "90°"},
      {0, {-1, 87, 5}, std::nullopt},  // the true heading as it is, invalid or not
      {2, {-1, 87, 5}, "87°"},         {2, {0, 87, 5}, "87°"},  {-1, {90, 87, 5}, "90°"},
      {0, {90, 87, -1}, std::nullopt},
  };
  for (const Case& c : cases) {
    Widget w;
    w.host.suite.set("compassHeading", c.compassHeading);
    w.appear();
    w.host.location.deliver(c.heading);
    EXPECT_EQ(Widget::text(w.controller->headingLabel), c.text) << c.compassHeading;
  }
}

// x = -300 / 360 of the heading; mils are 6400 / 360 of it.
TEST(Heading, SlidesTheTape) {
  struct Case {
    double heading;
    const char* degrees;
    const char* mils;
    double x;
  };
  for (const Case& c :
       {Case{90, "90°", "1600 mils", -75}, Case{359.9, "360°", "6398 mils", -299.91666666666663},
        Case{0, "0°", "0 mils", 0}, Case{45.5, "46°", "809 mils", -37.916666666666664}}) {
    for (const bool mils : {false, true}) {
      Widget w;
      w.host.suite.set("useMils", mils);
      w.appear();
      w.controller->setMapCompassDisplaysWithHeading(-0.1);  // an invalid course: nothing yet
      EXPECT_FALSE(w.controller->leftConstraint.lock()->constant());
      w.controller->setMapCompassDisplaysWithHeading(c.heading);
      EXPECT_EQ(Widget::text(w.controller->headingLabel), mils ? c.mils : c.degrees);
      EXPECT_DOUBLE_EQ(*w.controller->leftConstraint.lock()->constant(), c.x);
      EXPECT_EQ(w.controller->compassLabel.lock()->frame(),
                (CGRect{{*w.controller->leftConstraint.lock()->constant(), -3}, {430, 26}}));
    }
  }
}

// The waypoint lies due east on the equator: bearing 90.
TEST(Heading, TheArrowFollowsTheDeviceOrTheCourse) {
  Widget w;
  w.host.suite.set("waypointLatitude", 0.0);
  w.host.suite.set("waypointLongitude", 2.0);
  w.appear();
  CompassView& compass = *w.controller->compassRotatingView.lock();
  w.fix(0, 1, 0, 5, 5, 30);
  EXPECT_FALSE(compass.arrow());
  EXPECT_EQ(Widget::text(w.controller->headingLabel), std::nullopt);
  w.host.location.deliver(CLHeading{60, 60, 5});
  EXPECT_EQ(compass.arrow(), (CompassView::Arrow{90, 60}));
  EXPECT_NEAR(compass.compassArrowView()->transform().rotation, 0.5235987755982988, 1e-12);

  compass.setCompassDisplayCourse(true);
  w.host.location.deliver(CLHeading{200, 200, 5});
  EXPECT_EQ(w.controller->currentHeading, 200);
  EXPECT_EQ(compass.arrow(), (CompassView::Arrow{90, 60}));
  w.fix(0, 1, 0, 5, 5, 30);
  EXPECT_EQ(compass.arrow(), (CompassView::Arrow{90, 30}));
  EXPECT_EQ(Widget::text(w.controller->headingLabel), "30°");
}

TEST(Address, PartsThatAreMissingAreDashes) {
  Widget w;
  w.controller->geocoderDidFindPlacemark(CLPlacemark{CNPostalAddress{"A 1", std::nullopt, "B"}});
  EXPECT_EQ(Widget::text(w.controller->addressLabel), "A 1, –, B");
}

TEST(PositionDisplay, IsLaidOutByFormat) {
  struct Case {
    int units;
    bool captionHidden;
    const char* zoneLine;
    const char* position;
  };
  // 44.5 N, 93.25 W: 30' N and 15' W. Zone 15 is central on 93 W; letters and digits of the grid
  // reference agree with the easting and northing of the last row: column 4 of the zone's set of
  // S to Z is V, and row 49 counted from F of an odd zone's A is K.
  const Case cases[] = {
      {0, false, "", "44.500000\n-93.250000"},
      {1, false, "", "   44° 30.0000' N\n   93° 15.0000' W"},
      {2, false, "", "   44° 30' 0.00'' N\n   93° 15' 0.00'' W"},
      {3, true, "", "   15T VK 80126 27440"},
      {4, true, "    480125.6mE\n    4927439.6mN", "15 N"},
      {5, true, "    480125.6mE\n    4927439.6mN", "15 N"},  // unknown: as it was
      {-1, true, "    480125.6mE\n    4927439.6mN", "15 N"},
  };
  Widget w;
  w.appear();
  w.controller->currentLocation.emplace().coordinate = {44.5, -93.25};
  for (const Case& c : cases) {
    w.controller->updateCurrentLocationDisplayWithUnits(c.units);
    EXPECT_EQ(Widget::hidden(w.controller->latLongLabel), c.captionHidden) << c.units;
    EXPECT_EQ(Widget::text(w.controller->utmZoneLabel), c.zoneLine) << c.units;
    EXPECT_EQ(Widget::text(w.controller->userCoordinateLabel), c.position) << c.units;
  }
  EXPECT_EQ(w.controller->utmZoneLabel.lock()->font(), UIFont::boldSystemFontOfSize(18));
  EXPECT_EQ(w.controller->userCoordinateLabel.lock()->textAlignment(), NSTextAlignment::left);
}

}  // namespace
}  // namespace wayfell
