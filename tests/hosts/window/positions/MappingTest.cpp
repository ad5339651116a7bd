// Each field from the rules in PositionMapping.h.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QGeoCoordinate>
#include <QTimeZone>

#include "hosts/window/positions/PositionMapping.h"

namespace wayfell {
namespace {

constexpr NSDate kNow{1000};

TEST(PositionMapping, TakesEachFieldThatThereIs) {
  QGeoPositionInfo info(QGeoCoordinate(-33.5, 151.25, 82.5),
                        QDateTime({2001, 1, 1}, {0, 1, 0, 250}, Qt::UTC));
  info.setAttribute(QGeoPositionInfo::HorizontalAccuracy, 12);
  info.setAttribute(QGeoPositionInfo::VerticalAccuracy, 20);
  info.setAttribute(QGeoPositionInfo::GroundSpeed, 1.5);
  info.setAttribute(QGeoPositionInfo::Direction, 270);
  EXPECT_EQ(locationOf(info, kNow), (CLLocation{{-33.5, 151.25}, 82.5, 12, 20, 1.5, 270, {60.25}}));
}

TEST(PositionMapping, SaysWhatIsUnknown) {
  const QGeoPositionInfo flat(QGeoCoordinate(1, 2), QDateTime());
  EXPECT_EQ(locationOf(flat, kNow), (CLLocation{{1, 2}, 0, 5, -1, -1, -1, kNow}));
  QGeoPositionInfo high(QGeoCoordinate(1, 2, 300), QDateTime());
  high.setAttribute(QGeoPositionInfo::HorizontalAccuracy, 0);
  EXPECT_EQ(locationOf(high, kNow), (CLLocation{{1, 2}, 300, 5, 5, -1, -1, kNow}));
  EXPECT_FALSE(locationOf(QGeoPositionInfo(), kNow));
}

TEST(PositionMapping, WhoStandsHasNoCourse) {
  QGeoPositionInfo info(QGeoCoordinate(1, 2), QDateTime());
  info.setAttribute(QGeoPositionInfo::Direction, 90);
  info.setAttribute(QGeoPositionInfo::GroundSpeed, 0.2);
  EXPECT_EQ(locationOf(info, kNow)->course, -1);
  info.setAttribute(QGeoPositionInfo::GroundSpeed, 0.3);
  EXPECT_EQ(locationOf(info, kNow)->course, 90);
}

TEST(PositionMapping, HeadingsAreMagneticAndTrueWhereTheVariationIsKnown) {
  EXPECT_EQ(headingOf(2, 1, -3.5), (CLHeading{358.5, 2, 5}));
  EXPECT_EQ(headingOf(359, 0.3, 3), (CLHeading{2, 359, 5}));
  EXPECT_EQ(headingOf(90, 0, std::nullopt), (CLHeading{-1, 90, -1}));
}

}  // namespace
}  // namespace wayfell
