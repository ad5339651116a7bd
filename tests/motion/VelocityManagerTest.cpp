#include "motion/VelocityManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using testing::ElementsAre;

constexpr auto kFast = PaceTimerClock::twoSeconds;
constexpr auto kSlow = PaceTimerClock::fiveSeconds;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNan = std::nan("");

// Metres and seconds.
struct Step {
  double east;
  double time;
};

// Along the equator a degree of longitude is a circle's, of the semi-major axis: 6378137 pi / 180.
CLLocation fix(Step step, double speed = -1, double altitude = 0) {
  return {{0, step.east / 111319.49079327358}, altitude, 5, -1, speed, -1, {step.time}};
}

class Listener : public VelocityManagerDelegate {
 public:
  void velocityManagerDidUpdateSpeed(double averageSpeed) override {
    speeds.push_back(averageSpeed);
  }
  std::vector<double> speeds;
};

class VelocityManagerTest : public testing::Test {
 protected:
  SimulatedHost host;
  std::shared_ptr<Listener> listener = std::make_shared<Listener>();
  std::shared_ptr<VelocityManager> manager =
      std::make_shared<VelocityManager>()->initWithDelegate(listener);
};

// --- The speed of a fix --------------------------------------------------------------------

TEST_F(VelocityManagerTest, FirstFixOnlySeedsTheHistory) {
  CLLocation invalid = fix({0, 0}, 3, 100);
  invalid.horizontalAccuracy = -1;
  manager->updateSpeedWithLocation(invalid);
  EXPECT_EQ(manager->currentLocation(), invalid);
  EXPECT_EQ(manager->previousLocation(), invalid);
  EXPECT_EQ(manager->averageAltitude(), 0);
  EXPECT_TRUE(manager->rollingAverageSpeedArray().empty());
  EXPECT_EQ(host.loop.timersWithInterval(7.0), 0U);

  CLLocation second = fix({20, 10}, 2, 50);
  second.horizontalAccuracy = 0;  // as good as can be
  manager->updateSpeedWithLocation(second);
  EXPECT_EQ(manager->currentLocation(), second);
  manager->updateSpeedWithLocation(invalid);  // from the second on, an invalid one is ignored
  EXPECT_EQ(manager->currentLocation(), second);
}

TEST_F(VelocityManagerTest, SpeedOfOneFix) {
  // Worked by hand. v is the mean of the speeds from the last fix and from the one before it;
  // w is the latter alone, s the receiver's.
  struct Case {
    Step previous, current, fix;
    double receiverSpeed;
    std::optional<double> expected;  // none: the fix changes nothing
  };
  const Case cases[] = {
      // Moved: v, or its mean with s > 0.
      {{0, 0}, {10, 10}, {20, 20}, -1, 1.0},
      {{0, 0}, {10, 10}, {20, 20}, 0, 1.0},
      {{0, 0}, {10, 10}, {20, 20}, 3, 2.0},
      {{0, 0}, {10, 10}, {20, 20}, kNan, 1.0},
      {{0, 0}, {10, 10}, {4, 20}, -1, 0.4},  // turned back: (0.6 + 0.2) / 2
      {{0, 0}, {0, 0}, {4, 0.8}, -1, 5.0},
      // Too soon or too near, but going on in one direction: w, whatever s.
      {{0, 0}, {10, 10}, {21, 10.5}, -1, 2.0},
      {{0, 0}, {10, 10}, {21, 10.5}, 9, 2.0},
      {{0, 0}, {10, 10}, {11.9, 10}, -1, 1.19},
      // Neither: v / 2 for s = 0, s itself above 0, else nothing.
      {{0, 0}, {10, 10}, {9, 11}, -1, std::nullopt},
      {{0, 0}, {10, 10}, {9, 11}, 0, 5.0 / 11},  // (1 + 9 / 11) / 2 / 2
      {{0, 0}, {10, 10}, {9, 11}, 5, 5.0},
      {{0, 0}, {0, 0}, {1.9, 1}, -1, std::nullopt},
      {{0, 0}, {0, 0}, {1.9, 1}, 0, 0.95},
      {{0, 0}, {0, 0}, {4, 0.79}, -1, std::nullopt},
      // Below a quarter it is 0 before s counts.
      {{0, 0}, {0, 0}, {2.4, 10}, -1, 0.0},
      {{0, 0}, {0, 0}, {2.5001, 10}, -1, 0.25001},
      {{0, 0}, {0, 0}, {2.4, 10}, 4, 2.0},
      // Time stands still or runs back: as computed.
      {{0, 0}, {10, 0}, {20, 0}, -1, kInfinity},
      {{0, 0}, {0, 0}, {1, 0}, 0, kInfinity},
      {{0, 0}, {0, 0}, {0, 0}, 0, kNan},
      {{0, 0}, {0, 0}, {1, -1}, 0, 0.0},  // v = -1, below a quarter
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "to " << c.fix.east << " m at " << c.fix.time
                                    << " s, receiver " << c.receiverSpeed);
    manager->setPreviousLocation(fix(c.previous));
    manager->setCurrentLocation(fix(c.current));
    manager->setCalculatedAverageSpeed(-7);
    manager->setZeroSpeed(true);
    manager->setZeroTimer(nullptr);
    manager->updateSpeedWithLocation(fix(c.fix, c.receiverSpeed));
    const bool accepted = c.expected.has_value();
    const double expected = c.expected.value_or(-7);
    EXPECT_THAT(manager->calculatedAverageSpeed(), std::isfinite(expected)
                                                       ? testing::DoubleNear(expected, 1e-7)
                                                       : testing::NanSensitiveDoubleEq(expected));
    EXPECT_EQ(manager->previousLocation(), fix(accepted ? c.current : c.previous));
    EXPECT_EQ(manager->currentLocation()->timestamp,
              NSDate{accepted ? c.fix.time : c.current.time});
    EXPECT_EQ(manager->zeroSpeed(), !accepted);
    EXPECT_EQ(manager->zeroTimer() != nullptr, accepted);
    EXPECT_EQ(manager->averageSpeed(), 0);  // fixes never publish
  }
}

TEST_F(VelocityManagerTest, FixesOfAWalk) {
  // By hand. Speed is the mean of the speeds from the last fix and from the one before it, or its
  // mean with the receiver's; of speeds and altitudes the mean of three counts; the glide ratio is
  // the way to what the mean altitude has risen to.
  struct Case {
    Step step;
    double receiverSpeed, altitude;
    double speed, rollingSpeed, averageAltitude, verticalSpeed, glideRatio, slopeAngle, up, down;
  };
  const Case cases[] = {
      {{0, 0}, -1, 99, 0, 0, 0, 0, 0, 0, 0, 0},
      {{20, 10}, -1, 30, 2, 2, 30, 3, 0.666667, 56.3099, 0, 0},
      {{60, 20}, 4.5, 36, 4, 3, 33, 0.3, 1.818182, 28.8108, 0, 0},
      {{90, 30}, 0, 54, 3.25, 3.08333, 40, 0.7, 2.25, 23.9625, 10, 0},
      {{100, 40}, -1, 36, 1.5, 2.91667, 42, 0.2, 2.380952, 22.7824, 10, 0},
      {{99, 41}, -1, 140, 1.5, 2.91667, 42, 0.2, 2.380952, 22.7824, 10, 0},  // ignored
      {{140, 50}, -1, 0, 3.25, 2.66667, 30, -1.2, 4.666667, 12.0948, 10, 10},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.step.time);
    manager->updateSpeedWithLocation(fix(c.step, c.receiverSpeed, c.altitude));
    EXPECT_NEAR(manager->calculatedAverageSpeed(), c.speed, 1e-4);
    EXPECT_NEAR(manager->rollingAverageSpeed(), c.rollingSpeed, 1e-4);
    EXPECT_NEAR(manager->averageAltitude(), c.averageAltitude, 1e-4);
    EXPECT_NEAR(manager->verticalSpeed(), c.verticalSpeed, 1e-4);
    EXPECT_NEAR(manager->glideRatio(), c.glideRatio, 1e-6);
    EXPECT_NEAR(manager->slopeAngle(), c.slopeAngle, 1e-4);
    EXPECT_NEAR(manager->altitudeAscent(), c.up, 1e-9);
    EXPECT_NEAR(manager->altitudeDescent(), c.down, 1e-9);
  }
  for (int i = 0; i < 20; ++i) manager->updateSpeedWithLocation(fix({0, 60.0 + i}, 1, i));
  EXPECT_THAT(manager->rollingAverageAltitudeArray(), ElementsAre(19, 18, 17));
  EXPECT_EQ(manager->rollingAverageSpeedArray().size(), 3U);
  EXPECT_EQ(manager->glideRatioDistanceArray().size(), 15U);
  EXPECT_EQ(manager->glideRatioAltitudeArray().size(), 15U);
  // What is left: standing still while the mean climbs.
  EXPECT_EQ(manager->glideRatio(), 0);
  EXPECT_EQ(manager->slope(), 0);
}

// --- Altitude ------------------------------------------------------------------------------

TEST_F(VelocityManagerTest, GlideRatioAndSlope) {
  manager->setAverageAltitude(10);
  manager->updateSpeedWithLocation(fix({0, 0}));
  manager->updateSpeedWithLocation(fix({100, 10}));
  EXPECT_NEAR(manager->glideRatio(), -10, 1e-9);
  EXPECT_NEAR(manager->slope(), -0.1, 1e-11);
  EXPECT_NEAR(manager->slopeAngle(), -5.710593137, 1e-8);  // -atan(0.1)

  manager->setGlideRatioAltitudeArray({});
  manager->updateSpeedWithLocation(fix({200, 20}));  // on the level
  EXPECT_EQ(manager->glideRatio(), 0);
  EXPECT_NEAR(manager->slopeAngle(), -5.710593137, 1e-8);

  manager->setAverageAltitude(1);
  manager->setGlideRatioDistanceArray({});
  manager->setGlideRatioAltitudeArray({});
  manager->updateSpeedWithLocation(fix({200.5, 21}, 1));  // half a metre on and a metre down
  EXPECT_NEAR(manager->slope(), -2, 1e-6);

  manager->updateSpeedWithLocation(fix({210, 21}, -1, 30));  // no time passes
  EXPECT_EQ(manager->verticalSpeed(), kInfinity);
  manager->updateSpeedWithLocation(fix({220, 21}, -1, 0));  // the mean does not change
  EXPECT_TRUE(std::isnan(manager->verticalSpeed()));
}

TEST_F(VelocityManagerTest, AscentAndDescentHaveADeadBand) {
  struct Case {
    double altitude, ascent, descent, reference;
  };
  const Case cases[] = {
      {100, 0, 0, 100},  {105.9, 0, 0, 100}, {106, 6, 0, 106}, {100.5, 6, 0, 106}, {100, 6, 6, 100},
      {94.1, 6, 6, 100}, {80, 6, 26, 80},    {84, 6, 26, 80},  {88, 14, 26, 88},  // drift adds up
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.altitude);
    manager->accumulateAltitudeChange(c.altitude);
    EXPECT_EQ(manager->altitudeAscent(), c.ascent);
    EXPECT_EQ(manager->altitudeDescent(), c.descent);
    EXPECT_EQ(manager->lastMeasuredAltitude(), c.reference);
  }
  manager->resetAltitude();
  EXPECT_EQ(manager->altitudeAscent(), 0);
  EXPECT_EQ(manager->altitudeDescent(), 0);
  manager->accumulateAltitudeChange(94);  // 6 above what counted before the reset
  EXPECT_EQ(manager->altitudeAscent(), 6);
}

// --- The clocks ----------------------------------------------------------------------------

TEST_F(VelocityManagerTest, TicksOfTheClocks) {
  struct Case {
    PaceTimerClock clock;
    double averageSpeed, fixSpeed, rollingSpeed;
    bool zeroSpeed;
    std::optional<double> afterTwoSeconds, afterFiveSeconds;  // none: nothing is published
  };
  const Case cases[] = {
      {kFast, 0, 40, 30, false, 15.0, std::nullopt},
      {kFast, 30, 14.9, 9, false, 15.0, std::nullopt},
      {kFast, 12, 9, 9, true, 0.0, std::nullopt},
      {kFast, 1, kNan, 1, false, kNan, std::nullopt},
      {kFast, 0, 4.4704, 1, false, 4.4704, std::nullopt},
      {kFast, 0, 4.4705, 1, false, 4.4705, std::nullopt},
      {kSlow, 1, 7.0, 9, false, std::nullopt, 6.0},
      {kSlow, 1, 7.1, 5, false, 7.1, 5.0},
      {kSlow, 9, 3, 3, false, std::nullopt, 4.0},
      {kSlow, 12, 3, 9, true, std::nullopt, 2.0},
      {kSlow, 12, 40, 9, true, 0.0, 2.0},
  };
  const auto check = [&](const Case& c, void (VelocityManager::*tick)(),
                         std::optional<double> expected) {
    manager->setPaceTimerClock(c.clock);
    manager->setAverageSpeed(c.averageSpeed);
    manager->setCalculatedAverageSpeed(c.fixSpeed);
    manager->setRollingAverageSpeed(c.rollingSpeed);
    manager->setZeroSpeed(c.zeroSpeed);
    listener->speeds.clear();
    (manager.get()->*tick)();
    const double speed = expected.value_or(c.averageSpeed);
    EXPECT_THAT(manager->averageSpeed(), testing::NanSensitiveDoubleEq(speed));
    EXPECT_EQ(listener->speeds.size(), expected ? 1U : 0U);
    EXPECT_EQ(manager->paceTimerClock(), speed <= 4.4704 ? kSlow : kFast);
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.averageSpeed << " towards " << c.fixSpeed << " or " << c.rollingSpeed);
    check(c, &VelocityManager::twoSecondTick, c.afterTwoSeconds);
    check(c, &VelocityManager::fiveSecondTick, c.afterFiveSeconds);
  }
}

TEST_F(VelocityManagerTest, SpeedsUpAndRunsOut) {
  manager->updateSpeedWithLocation(fix({0, 0}, 20));
  host.loop.advanceTo({1});
  manager->updateSpeedWithLocation(fix({20, 1}, 20));  // 20 m/s; the zero timer is due at 8
  host.loop.advanceTo({3});
  EXPECT_THAT(listener->speeds, ElementsAre(testing::DoubleEq(15)));
  // A fix that is ignored leaves the zero timer alone, one that counts starts it anew, for 10.
  manager->updateSpeedWithLocation(fix({20, 1.5}, -1));
  manager->updateSpeedWithLocation(fix({60, 3}, 20));
  EXPECT_EQ(host.loop.timersWithInterval(7.0), 1U);
  host.loop.advanceTo({9});
  EXPECT_FALSE(manager->zeroSpeed());
  listener->speeds.clear();
  // At 10 the fast clock is first, then the zero timer takes off 5 (the slow clock rests), and
  // from 12 the fast clock takes off up to 15.
  host.loop.advanceTo({11});
  EXPECT_TRUE(manager->zeroSpeed());
  EXPECT_THAT(listener->speeds,
              ElementsAre(testing::DoubleNear(20, 1e-6), testing::DoubleNear(15, 1e-6)));
  host.loop.advanceTo({14});
  EXPECT_EQ(manager->averageSpeed(), 0);
  // A fast last fix lets both clocks go on publishing, without moving anything.
  listener->speeds.clear();
  host.loop.advanceTo({20});
  EXPECT_THAT(listener->speeds, ElementsAre(0, 0, 0, 0, 0));  // at 15, 16, 18, 20 and 20
}

// --- Ownership and overriding --------------------------------------------------------------

TEST_F(VelocityManagerTest, OnlyTheZeroTimerKeepsItAlive) {
  std::weak_ptr<VelocityManager> weak = manager;
  manager.reset();
  EXPECT_TRUE(weak.expired());
  host.loop.advanceBy(20);
  EXPECT_TRUE(listener->speeds.empty());

  manager = std::make_shared<VelocityManager>()->initWithDelegate(listener);
  weak = manager;
  manager->updateSpeedWithLocation(fix({0, 0}));
  manager->updateSpeedWithLocation(fix({20, 10}));
  manager.reset();
  host.loop.advanceBy(6.9);
  EXPECT_FALSE(weak.expired());
  const std::weak_ptr<Listener> weakListener = std::exchange(listener, nullptr);
  EXPECT_FALSE(weakListener.expired());
  host.loop.advanceBy(0.2);
  EXPECT_TRUE(weak.expired());
  EXPECT_TRUE(weakListener.expired());
}

class Override : public VelocityManager {
 public:
  void setAverageSpeed(double speed) override {
    VelocityManager::setAverageSpeed(std::min(speed, 10.0));
  }
  double glideRatio() const override { return VelocityManager::glideRatio() / 10; }
  double slope() const override { return 1; }
  void setAltitudeAscent(double ascent) override {
    VelocityManager::setAltitudeAscent(ascent + 1000);
  }
};

TEST_F(VelocityManagerTest, OverridesTakePart) {
  const auto custom = std::make_shared<Override>();
  EXPECT_EQ(custom->initWithDelegate(listener), custom);
  custom->setCalculatedAverageSpeed(12);
  host.loop.advanceTo({2});
  EXPECT_THAT(listener->speeds, ElementsAre(0, 10));  // the fixture's own manager stands still

  custom->updateSpeedWithLocation(fix({0, 0}, 1, 100));
  custom->updateSpeedWithLocation(fix({200, 10}, 1, 100));
  EXPECT_NEAR(custom->VelocityManager::slope(), 5, 1e-8);  // 1 / (200 / 100 / 10)
  EXPECT_EQ(custom->slopeAngle(), 45);                     // the angle of 1
  custom->accumulateAltitudeChange(110);
  EXPECT_EQ(custom->altitudeAscent(), 1010);
}

}  // namespace
}  // namespace wayfell
