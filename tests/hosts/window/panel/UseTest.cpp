// The panel in use: by keyboard, by ear, and while things turn.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAnimationDriver>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

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
    CLLocation fix;
    fix.coordinate = {46.98, 7.93998};
    fix.altitude = 905;
    fix.horizontalAccuracy = fix.verticalAccuracy = 5;
    widget_.apply(event::Locate{{fix}});
    turnTo(90);
  }

  void turnTo(double degrees) {
    CLHeading heading;
    heading.trueHeading = degrees;
    heading.headingAccuracy = 5;
    widget_.apply(event::Turn{heading});
  }

  void press(ShownPanel& panel, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&panel.window(), &event);
  }

  ReplayedWidget widget_;
};

TEST_F(Use, TheDisclosureGoesOnFromWhereItIs) {
  Time time;
  ShownPanel panel(widget_);
  const auto turn = [&] { return panel.item("toggleViewButton").property("turn").toDouble(); };
  EXPECT_EQ(turn(), 90);  // expanded
  panel.adapter().tap("toggleViewButton");
  time.pass(100);
  const double midway = turn();
  // Of an eased end more than half is done in half the time.
  EXPECT_GT(midway, 5);
  EXPECT_LT(midway, 45);
  panel.adapter().tap("toggleViewButton");
  EXPECT_EQ(turn(), midway);
  time.pass(1);
  EXPECT_NEAR(turn(), midway, 5);
  time.pass(200);
  EXPECT_EQ(turn(), 90);

  panel.style().setReducedMotion(true);
  panel.adapter().tap("toggleViewButton");
  EXPECT_EQ(turn(), 0);
}

TEST_F(Use, TheArrowTurnsTheShorterWay) {
  Time time;
  ShownPanel panel(widget_);
  const auto turn = [&] { return panel.item("arrowImageView").property("turn").toDouble(); };
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
  EXPECT_EQ(order(), "coordinateControl openView toggleViewButtonPlate positionCopy");
  panel.adapter().tap("toggleViewButton");
  EXPECT_EQ(order(), "openMiniView toggleViewButtonPlate positionCopy");
}

TEST_F(Use, ThumbsHit) {
  ShownPanel panel(widget_, 280);
  int areas = 0;
  for (const QString layout : {"expanded", "compact"}) {
    for (const QQuickItem* item : panel.items()) {
      if (!item->inherits("QQuickMouseArea") || !item->isVisible()) continue;
      EXPECT_GE(item->width(), 44) << item->parentItem()->objectName().toStdString();
      EXPECT_GE(item->height(), 44) << item->parentItem()->objectName().toStdString();
      ++areas;
    }
    panel.adapter().tap("toggleViewButton");
  }
  EXPECT_EQ(areas, 5 + 3 + 3);

  // Below what is drawn of the button, yet on it.
  const QQuickItem& button = panel.item("toggleViewButtonPlate");
  const QPointF place = button.mapToScene({button.width() / 2, button.height() + 4});
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, place, Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&panel.window(), &event);
  }
  EXPECT_TRUE(panel.adapter().compact());
}

TEST_F(Use, KeysDoWhatTouchesDo) {
  ShownPanel panel(widget_);
  panel.window().requestActivate();
  QCoreApplication::processEvents();
  press(panel, Qt::Key_4, "4");
  EXPECT_EQ(panel.adapter().selectedSegment(), 4);
  panel.item("coordinateControl").forceActiveFocus();
  press(panel, Qt::Key_Left);
  EXPECT_EQ(panel.adapter().selectedSegment(), 3);
  press(panel, Qt::Key_Right);
  press(panel, Qt::Key_Right);
  EXPECT_EQ(panel.adapter().selectedSegment(), 4);
  panel.item("openView").forceActiveFocus();
  press(panel, Qt::Key_Space);
  press(panel, Qt::Key_O, "o");
  EXPECT_EQ(widget_.host().urls.requests.size(), 2U);
  panel.item("toggleViewButtonPlate").forceActiveFocus();
  press(panel, Qt::Key_Return);
  EXPECT_TRUE(panel.adapter().compact());
  press(panel, Qt::Key_T, "t");
  EXPECT_FALSE(panel.adapter().compact());
  panel.item("positionCopy").forceActiveFocus();
  press(panel, Qt::Key_1, "1");
  press(panel, Qt::Key_Space);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "46° 58.8000' N, 7° 56.3988' E");

  QKeyEvent others(QEvent::KeyPress, Qt::Key_H, Qt::NoModifier, "h");
  others.ignore();
  QCoreApplication::sendEvent(&panel.window(), &others);
  EXPECT_FALSE(others.isAccepted());  // left to whoever shows the panel
}

TEST_F(Use, IsHeardInFullWords) {
  ShownPanel panel(widget_);
  const auto heard = [&](const char* name) {
    const auto* item = QAccessible::queryAccessibleInterface(&panel.item(name));
    return item ? item->text(QAccessible::Name).toStdString() : "nothing";
  };
  // 1 degree of latitude is 111.19 km on the sphere: 0.01 of it 1.11 km.
  const std::pair<const char*, const char*> names[] = {
      {"headingLabel", "heading 90 degrees, true"},
      {"altitudeLabel", "altitude 905 metres"},
      {"speedLabel", "speed 0.0 kilometres per hour"},
      {"userCoordinateLabel",
       "position latitude 46 degrees 58.8000 minutes north, longitude 7 degrees 56.3988 minutes "
       "east"},
      {"waypointDistanceLabel", "distance to the waypoint 1.11 kilometres"},
      {"timeLabel", "track time 1 hours 1 minutes 1 seconds"},
      {"distanceLabel", "track distance 0.39 kilometres"},
      {"addressLabel", "address Am Hangried, Oberlinden, Alrun"},
      {"compassRotatingView", "waypoint 90 degrees to the left"},
      {"coordinateControl", "format of the position: degrees and decimal minutes"},
      {"segment2", "degrees, minutes and seconds"},
      {"openView", "open the app"},
      {"toggleViewButtonPlate", "show less"},
      {"positionCopy", "copy the position"},
  };
  for (const auto& [name, words] : names) EXPECT_EQ(heard(name), words);
  const auto* chosen = QAccessible::queryAccessibleInterface(&panel.item("segment1"));
  EXPECT_TRUE(chosen->state().checked);
  panel.adapter().pick(2);
  EXPECT_EQ(heard("userCoordinateLabel"),
            "position latitude 46 degrees 58 minutes 48.00 seconds north, "
            "longitude 7 degrees 56 minutes 23.93 seconds east");
  EXPECT_FALSE(chosen->state().checked);
  widget_.host().strings.translations["altitude %@"] = "Höhe %@";
  widget_.host().strings.translations["%@ metres"] = "%@ Meter";
  EXPECT_EQ(ShownPanel(widget_)
                .item("altitudeLabel")
                .property("view")
                .value<QObject*>()
                ->property("spoken")
                .toString(),
            "Höhe 905 Meter");
}

TEST_F(Use, OnlyChangesAreTold) {
  ShownPanel panel(widget_);
  panel.adapter().refresh();
  int changes = 0;
  const auto count = [&changes] { ++changes; };
  for (QObject* outlet : panel.adapter().findChildren<PanelOutlet*>()) {
    QObject::connect(static_cast<PanelOutlet*>(outlet), &PanelOutlet::changed, count);
  }
  QObject::connect(&panel.adapter(), &PanelAdapter::tapeOffsetChanged, count);
  QObject::connect(&panel.adapter(), &PanelAdapter::compassChanged, count);
  QObject::connect(&panel.adapter(), &PanelAdapter::segmentsChanged, count);
  QObject::connect(&panel.adapter(), &PanelAdapter::linesChanged, count);
  panel.adapter().refresh();
  widget_.host().loop.advanceBy(0.5);  // a tick that shows what is shown already
  panel.adapter().refresh();
  EXPECT_EQ(changes, 0);
  turnTo(91);
  EXPECT_EQ(changes, 0);
  panel.adapter().refresh();
  // The heading, the tape's label and its offset, the dial with its arrow, and where both point.
  EXPECT_EQ(changes, 6);
}

TEST_F(Use, WhatIsNotOnTheScreenCannotBeTouched) {
  ShownPanel panel(widget_);
  panel.scene().shown = false;
  panel.adapter().tap("toggleViewButton");
  panel.adapter().pick(3);
  EXPECT_EQ(panel.adapter().selectedSegment(), 1);
  EXPECT_EQ(panel.adapter().preferredHeight(), 286);
  EXPECT_FALSE(panel.adapter().onScreen());
}

TEST_F(Use, NewsStandUntilTheNextTouch) {
  ShownPanel panel(widget_);
  panel.adapter().refresh();
  EXPECT_EQ(panel.adapter().message(), "");
  panel.scene().news = "Open: wayfell://openFromWidget";
  panel.adapter().refresh();
  panel.adapter().refresh();
  EXPECT_EQ(panel.adapter().message(), "Open: wayfell://openFromWidget");
  panel.adapter().pick(0);
  EXPECT_EQ(panel.adapter().message(), "");
  panel.scene().failed = "line 3: no number";
  panel.adapter().refresh();
  EXPECT_EQ(panel.adapter().message(), "Stopped: line 3: no number");
}

}  // namespace
}  // namespace wayfell
