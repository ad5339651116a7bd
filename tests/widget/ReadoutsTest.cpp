// Speed, pace, arrival, track time and distance.

#include <gtest/gtest.h>

#include <limits>

#include "Widget.h"

namespace wayfell {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Readouts : Widget {
  Readouts() { appear(); }
  void setUnits(int units) { host.local.set("units", units); }
};

TEST(Speed, IsPaceWhenSlowOrAsChosen) {
  struct Case {
    int choice;
    double speed;
    const char* caption;
    const char* text;
  };
  const Case cases[] = {
      {0, 4.4704, "Pace", "03:43 /km"},  // 1000 / 4.4704 = 223.69 s
      {0, 4.4705, "Speed", "16.1 km/h"},
      {1, 20, "Pace", "00:50 /km"},
      {2, 2, "Speed", "7.2 km/h"},
  };
  Readouts w;
  w.setUnits(1);
  for (const Case& c : cases) {
    w.host.local.set("speed", c.choice);
    w.controller->velocityManager().setAverageSpeed(c.speed);
    w.controller->updateSpeed();
    EXPECT_EQ(Widget::text(w.controller->speedNameLabel), c.caption);
    EXPECT_EQ(Widget::text(w.controller->speedLabel), c.text);
  }
  // Unknown choices leave the row, and so does an automatic row that cannot tell.
  w.controller->velocityManager().setAverageSpeed(9);
  w.host.local.set("speed", 3);
  w.controller->updateSpeed();
  EXPECT_EQ(Widget::text(w.controller->speedLabel), "7.2 km/h");
  w.host.local.set("speed", 0);
  w.controller->velocityManager().setAverageSpeed(kNaN);
  w.controller->updateSpeed();
  EXPECT_EQ(Widget::text(w.controller->speedLabel), "7.2 km/h");
  // Unknown units empty it.
  w.host.local.set("speed", 2);
  w.setUnits(3);
  w.controller->updateSpeed();
  EXPECT_EQ(Widget::text(w.controller->speedLabel), std::nullopt);
}

TEST(Speed, TextsByUnits) {
  struct Case {
    int units;
    double speed;
    std::optional<std::string> asSpeed;
    std::optional<std::string> asPace;
  };
  // Speeds are the factor's product; paces 1 / (speed x units per metre), cut to whole seconds.
  const Case cases[] = {
      {0, 10, "22.4 mph", "02:40 /mi"},      // 160.93 s
      {2, 10, "19.4 kts", "03:05 /nm"},      // 185.2 s
      {1, 2, "7.2 km/h", "08:20 /km"},       // 500 s
      {0, 0.4, "0.9 mph", "01:07:03 /mi"},   // 4023.4 s
      {1, 0.3, "1.1 km/h", "55:33 /km"},     // 3333.3 s
      {1, 0.2999, "1.1 km/h", "00:00 /km"},  // standing still
      {0, 0, "0.0 mph", "00:00 /mi"},          {2, -1, "-1.9 kts", "00:00 /nm"},
      {1, kInfinity, "inf km/h", "00:00 /km"}, {1, kNaN, "nan km/h", "00:00 /km"},
      {3, 10, std::nullopt, std::nullopt},     {-1, 10, std::nullopt, std::nullopt},
  };
  Readouts w;
  for (const Case& c : cases) {
    w.setUnits(c.units);
    EXPECT_EQ(TodayViewController::convertMetersPerSecondToSpeed(c.speed), c.asSpeed);
    EXPECT_EQ(TodayViewController::convertMetersPerSecondToPace(c.speed), c.asPace);
  }
}

// From 0/1 to 0/0: 111319.49 m.
TEST(Arrival, IsDistanceBySpeed) {
  struct Case {
    double speed;
    const char* text;
  };
  const Case cases[] = {
      {111319.49, "0 m"},
      {1000, "1 m"},        // 111.3 s
      {30.92, "1 hr 0 m"},  // 3600.2 s
      {1, "30 hr 55 m"},    // 111319.49 s
      {0, "0 m"},
      {kNaN, "0 m"},             // no number of seconds
      {1e-9, "596523 hr 14 m"},  // saturated at 2147483647 s
  };
  Readouts w;
  w.controller->hasWaypoint = true;
  w.controller->currentLocation.emplace().coordinate = {0, 1};
  for (const Case& c : cases) {
    w.controller->calculateETAWithSpeed(c.speed);
    EXPECT_EQ(Widget::text(w.controller->etaLabel), c.text) << c.speed;
  }
  w.controller->hasWaypoint = false;
  w.controller->calculateETAWithSpeed(1);
  EXPECT_EQ(Widget::text(w.controller->etaLabel), "");
}

TEST(Track, DistanceByUnits) {
  struct Case {
    int units;
    double metres;
    const char* text;
  };
  const Case cases[] = {
      {1, 249.99, "250.0 m"}, {1, 250, "0.25 km"}, {0, 402, "1318.9 ft"},  // 0.24979 mi
      {0, 403, "0.25 mi"},                                                 // 0.25041 mi
      {2, 300, "984.3 ft"},                                                // 0.16199 nm
      {2, 464, "0.25 nm"},                                                 // 0.25054 nm
      {1, 0, "0.0 m"},        {7, 1000, "0.0 m"},  // unknown units leave the row
  };
  Readouts w;
  for (const Case& c : cases) {
    w.setUnits(c.units);
    w.controller->updateDistance(c.metres);
    EXPECT_EQ(Widget::text(w.controller->distanceLabel), c.text) << c.metres;
    EXPECT_EQ(Widget::text(w.controller->miniDistanceLabel), c.text) << c.metres;
  }
}

TEST(Track, Time) {
  struct Case {
    double seconds;
    const char* text;
  };
  Readouts w;
  for (const Case& c : {Case{59.9, "00:59"}, Case{3599.9999999, "1:00:00"},  // six decimals round
                        Case{3600, "1:00:00"}, Case{90061, "25:01:01"}, Case{kNaN, "00:00"},
                        Case{kInfinity, "00:00"}, Case{1e12, "596523:14:07"}, Case{-5, "00:-5"}}) {
    w.controller->updateTime(c.seconds);
    EXPECT_EQ(Widget::text(w.controller->timeLabel), c.text);
    EXPECT_EQ(Widget::text(w.controller->miniTimeLabel), c.text);
  }
}

// The tick reads settings from the local store, and the track from the shared one.
TEST(Tick, ReadsEachStoreForItsOwn) {
  Readouts w;
  w.host.suite.set("units", 1);  // not copied before the next appearance
  w.host.local.set("distance", 5000.0);
  w.host.suite.set("distance", 1609.344);
  w.host.suite.set("time", "75 s");
  w.host.loop.advanceBy(0.5);
  EXPECT_EQ(Widget::text(w.controller->distanceLabel), "1.00 mi");
  EXPECT_EQ(Widget::text(w.controller->timeLabel), "01:15");
}

}  // namespace
}  // namespace wayfell
