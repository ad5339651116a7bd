// The panel in use: by keyboard, by ear, and while things turn.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAnimationDriver>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <tuple>

#include "ShownPanel.h"

namespace wayfell {
namespace {

// Time for animations is what the test says it is.
class Time : public QAnimationDriver {
 public:
  Time() { install(); }
  ~Time() override { uninstall(); }
  qint64 elapsed() const override { return now_; }
  void pass(int milliseconds) {
    // What has been asked for begins within a few turns of the loop.
    for (int turn = 0; turn < 3 || (turn < 20 && !isRunning()); ++turn) {
      QCoreApplication::processEvents();
    }
    now_ += milliseconds;
    advanceAnimation();
  }

 private:
  qint64 now_ = 0;
};

class Use : public testing::Test {
 protected:
  Use() {
    widget_.apply(event::WriteSuite{{{"units", PropertyValue(1)},
                                     {"speed", PropertyValue(2)},
                                     {"coordinateUnits", PropertyValue(1)},
                                     {"hasWaypoint", PropertyValue(true)},
                                     {"waypointLatitude", PropertyValue(46.99)},
                                     {"waypointLongitude", PropertyValue(7.93998)},
                                     {"distance", PropertyValue(390.0)},
                                     {"time", PropertyValue(3661.0)}}});
    widget_.host().geocoder.answer =
        CLPlacemark{CNPostalAddress{"Am Hangried", "Oberlinden", "Alrun"}};
    widget_.start();
    widget_.apply(event::Locate{{CLLocation{{46.98, 7.93998}, 905, 5, 5, -1, -1, {}}}});
    turnTo(90);
  }

  void turnTo(double degrees) { widget_.apply(event::Turn{{degrees, 0, 5}}); }

  void press(ShownPanel& panel, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&panel.window(), &event);
  }

  ReplayedWidget widget_;
};

TEST_F(Use, TheDisclosureGoesOnFromWhereItIs) {
  Time time;
  ShownPanel panel(widget_);
  const auto turn = [&] { return panel.item("disclosure").property("turn").toDouble(); };
  EXPECT_EQ(turn(), 90);  // expanded
  panel.adapter().switchLayout();
  time.pass(100);
  const double midway = turn();
  // An eased turn has done more than half of its way in half the time.
  EXPECT_GT(midway, 5);
  EXPECT_LT(midway, 45);
  panel.adapter().switchLayout();
  EXPECT_EQ(turn(), midway);
  time.pass(1);
  EXPECT_NEAR(turn(), midway, 5);
  time.pass(200);
  EXPECT_EQ(turn(), 90);

  panel.style().setReducedMotion(true);
  panel.adapter().switchLayout();
  EXPECT_EQ(turn(), 0);
}

TEST_F(Use, TheArrowTurnsTheShorterWay) {
  Time time;
  ShownPanel panel(widget_);
  const auto turn = [&] { return panel.item("waypointArrow").property("turn").toDouble(); };
  // The waypoint is due north: 270 degrees to the right of someone who looks east is 90 to the
  // left.
  EXPECT_NEAR(turn(), -90, 0.01);
  turnTo(10);
  panel.adapter().refresh();
  time.pass(100);
  EXPECT_GT(turn(), -90);
  time.pass(200);
  EXPECT_NEAR(turn(), -10, 0.01);
  turnTo(350);
  panel.adapter().refresh();
  time.pass(100);
  EXPECT_GT(turn(), -10);  // through north, not all the way round
  EXPECT_LT(turn(), 10);
  time.pass(200);
  EXPECT_NEAR(turn(), 10, 0.01);
}

TEST_F(Use, TabGoesThroughAllThatCanBeDone) {
  ShownPanel panel(widget_);
  const auto order = [&] {
    QStringList names;
    QQuickItem* item = &panel.root();
    for (int i = 0; i < 100; ++i) {
      item = item->nextItemInFocusChain();
      if (!item || names.contains(item->objectName())) break;
      if (item->activeFocusOnTab()) names.append(item->objectName());
    }
    return names.join(' ');
  };
  EXPECT_EQ(order(), "positionCopy open layout formats");
  panel.adapter().switchLayout();
  EXPECT_EQ(order(), "positionCopy open layout");
}

TEST_F(Use, ThumbsHit) {
  ShownPanel panel(widget_, 280);
  constexpr double kEdge = 5;  // of the window, by which it is made wider
  int areas = 0;
  for (const QString layout : {"expanded", "compact"}) {
    panel.draw();
    for (const QQuickItem* item : panel.items()) {
      if (!item->inherits("QQuickMouseArea") || !item->isVisible()) continue;
      EXPECT_GE(item->width(), 44) << item->parentItem()->objectName().toStdString();
      EXPECT_GE(item->height(), 44) << item->parentItem()->objectName().toStdString();
      EXPECT_LE(panel.root().mapFromItem(item, {item->width(), 0}).x(), 280 - kEdge);
      EXPECT_GE(panel.root().mapFromItem(item, {0, 0}).x(), kEdge);
      ++areas;
    }
    panel.adapter().switchLayout();
  }
  EXPECT_EQ(areas, 5 + 3 + 3);
}

TEST_F(Use, KeysDoWhatTouchesDo) {
  ShownPanel panel(widget_);
  panel.window().requestActivate();
  QCoreApplication::processEvents();
  panel.item("formats").forceActiveFocus();
  press(panel, Qt::Key_Left);
  EXPECT_EQ(panel.adapter().format(), 0);
  press(panel, Qt::Key_Left);
  EXPECT_EQ(panel.adapter().format(), 0);
  press(panel, Qt::Key_Right);
  EXPECT_EQ(panel.adapter().format(), 1);
  panel.item("open").forceActiveFocus();
  press(panel, Qt::Key_Space);
  EXPECT_EQ(widget_.host().urls.requests.size(), 1U);
  panel.item("layout").forceActiveFocus();
  press(panel, Qt::Key_Return);
  EXPECT_TRUE(panel.adapter().compact());
  panel.item("positionCopy").forceActiveFocus();
  press(panel, Qt::Key_Space);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "46° 58.8000' N, 7° 56.3988' E");
}

TEST_F(Use, IsHeardInFullWords) {
  ShownPanel panel(widget_);
  const auto heard = [&](const char* name) {
    const auto* item = QAccessible::queryAccessibleInterface(&panel.item(name));
    return item ? item->text(QAccessible::Name).toStdString() : "nothing";
  };
  // 1 degree of latitude is 111.19 km on the sphere: 0.01 of it 1.11 km.
  const std::pair<const char*, const char*> names[] = {
      {"heading", "heading 90 degrees, true"},
      {"altitudeValue", "altitude 905 metres"},
      {"speedValue", "speed 0.0 kilometres per hour"},
      {"position",
       "position latitude 46 degrees 58.8000 minutes north, longitude 7 degrees 56.3988 minutes "
       "east"},
      {"waypointDistanceValue", "distance to the waypoint 1.11 kilometres"},
      {"trackTimeValue", "track time 1 hours 1 minutes 1 seconds"},
      {"trackDistanceValue", "track distance 0.39 kilometres"},
      {"address", "address Am Hangried, Oberlinden, Alrun"},
      {"compass", "waypoint 90 degrees to the left"},
      {"formats", "format of the position: degrees and decimal minutes"},
      {"format2", "degrees, minutes and seconds"},
      {"open", "open the app"},
      {"layout", "show less"},
      {"positionCopy", "copy the position"},
  };
  for (const auto& [name, words] : names) EXPECT_EQ(heard(name), words);
  const auto* chosen = QAccessible::queryAccessibleInterface(&panel.item("format1"));
  EXPECT_TRUE(chosen->state().checked);
  panel.adapter().pickFormat(2);
  EXPECT_EQ(heard("position"),
            "position latitude 46 degrees 58 minutes 48.00 seconds north, "
            "longitude 7 degrees 56 minutes 23.93 seconds east");
  EXPECT_FALSE(chosen->state().checked);
  widget_.host().strings.translations["altitude %@"] = "Höhe %@";
  widget_.host().strings.translations["%@ metres"] = "%@ Meter";
  EXPECT_EQ(ShownPanel(widget_).adapter().altitude()->spoken(), "Höhe 905 Meter");
}

TEST_F(Use, OnlyChangesAreTold) {
  ShownPanel panel(widget_);
  PanelAdapter& adapter = panel.adapter();
  int changes = 0;
  const auto count = [&changes] { ++changes; };
  for (std::size_t i = 0; i < kPanelRows; ++i) {
    QObject::connect(&adapter.row(PanelRow{static_cast<int>(i)}), &ShownRow::changed, count);
  }
  for (const auto signal :
       {&PanelAdapter::layoutChanged, &PanelAdapter::tapeChanged, &PanelAdapter::compassChanged,
        &PanelAdapter::formatsChanged, &PanelAdapter::linesChanged}) {
    QObject::connect(&adapter, signal, count);
  }
  widget_.host().loop.advanceBy(0.5);  // a tick that shows what is shown already
  adapter.refresh();
  turnTo(91);
  EXPECT_EQ(changes, 0);
  adapter.refresh();
  EXPECT_EQ(changes, 4);  // the heading, the tape, the dial, and the dial in words
}

// What is old is dim without anything else having changed, and the way is an outline.
TEST_F(Use, WhatIsOldIsDim) {
  ShownPanel panel(widget_);
  const auto color = [&](const char* name) {
    return panel.item(name).property("color").value<QColor>();
  };
  const auto seen = [&] {
    return std::tuple(color("altitudeValue"), color("waypointDistanceValue"),
                      color("trackTimeValue"), color("heading"),
                      panel.item("waypointArrow").property("hollow").toBool());
  };
  const QColor value = panel.style().value();
  const QColor pointer = panel.style().pointer();
  const QColor dim = panel.style().dim();
  EXPECT_EQ(seen(), std::tuple(value, pointer, value, value, false));
  panel.scene().fresh = {.fix = false, .heading = true};
  panel.adapter().refresh();
  EXPECT_EQ(seen(), std::tuple(dim, dim, value, value, true));
  panel.scene().fresh = {.fix = true, .heading = false};
  panel.adapter().refresh();
  EXPECT_EQ(seen(), std::tuple(value, pointer, value, dim, true));
}

TEST_F(Use, NewsStandUntilTheNextTouch) {
  ShownPanel panel(widget_);
  panel.scene().news = "Open: wayfell://openFromWidget";
  panel.adapter().refresh();
  panel.adapter().refresh();
  EXPECT_EQ(panel.adapter().message(), "Open: wayfell://openFromWidget");
  panel.adapter().pickFormat(0);
  EXPECT_EQ(panel.adapter().message(), "");
  panel.scene().failed = "line 3: no number";
  panel.adapter().refresh();
  EXPECT_EQ(panel.adapter().message(), "Stopped: line 3: no number");
}

}  // namespace
}  // namespace wayfell
