#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/NSTimer.h"
#include "platform/SimulatedHost.h"
#include "platform/TimerQueue.h"

namespace wayfell {
namespace {

std::shared_ptr<NSTimer> schedule(double interval, bool repeats, std::string& log, char name) {
  return NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(
      interval, repeats, [&log, name](const NSTimer&) { log += name; });
}

TEST(RunLoop, FiresInOrderOfTimeThenOfCreation) {
  SimulatedHost host(NSDate{100});
  std::string log;
  schedule(2, true, log, 'a');    // 102, 104
  schedule(0.5, true, log, 'b');  // 100.5, 101, ... 104
  schedule(1, false, log, 'c');   // 101
  host.loop.advanceTo(NSDate{102});
  EXPECT_EQ(log, "bbcbab");  // at 101 b is older than c, at 102 a is older than b
  host.loop.advanceTo(NSDate{104});
  EXPECT_EQ(log, "bbcbabbbbab");
  EXPECT_EQ(host.loop.timersWithInterval(0.5), 1U);
}

// Ten sums of 0.1 are not 1, ten times 0.1 is.
TEST(RunLoop, TheClockShowsTheFiringDateAndNeverGoesBack) {
  SimulatedHost host;
  std::vector<double> dates;
  NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(0.1, true, [&](const NSTimer&) {
    dates.push_back(NSDate::date().timeIntervalSinceReferenceDate);
  });
  host.loop.advanceTo(NSDate{1});
  ASSERT_EQ(dates.size(), 10U);
  EXPECT_EQ(dates.back(), 1);
  host.loop.advanceTo(NSDate{0.5});
  EXPECT_EQ(NSDate::date(), NSDate{1});
}

TEST(RunLoop, ActionsMayEndTheirOwnTimerAndStartOthers) {
  SimulatedHost host;
  std::string log;
  const auto held = std::make_shared<int>();
  std::shared_ptr<NSTimer> self;
  self = NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(1, true, [&, held](const NSTimer&) {
    log += 'x';
    schedule(0, false, log, 'n');  // due at once
    self->invalidate();
    self->invalidate();
  });
  host.loop.advanceBy(10);
  EXPECT_EQ(log, "xn");
  EXPECT_FALSE(self->isValid());
  EXPECT_EQ(held.use_count(), 1);
}

// A run loop that was kept from running, as by a machine asleep.
TEST(TimerQueue, DoesNotMakeUpForMissedFirings) {
  TimerQueue timers;
  int firings = 0;
  timers.schedule(100, 0.5, true, [&] { ++firings; });
  EXPECT_EQ(timers.nextDue(), 100.5);
  timers.fireNext(3700.2);
  EXPECT_EQ(firings, 1);
  EXPECT_EQ(timers.nextDue(), 3700.5);  // in step with the others, as 100 + n x 0.5
}

// Dates are rounded, the more so the further they are from the reference date.
TEST(TimerQueue, PassesOverTheDatesThatFiringsWouldHaveHad) {
  for (const double start : {0.0, 0.1, -9999999999.7, 9999990000.3}) {
    for (const double interval : {0.5, 0.1, 1.0 / 3}) {
      for (const double instant : {start + 100 * interval, start + 1000.2}) {
        TimerQueue fired;
        TimerQueue passed;
        for (TimerQueue* timers : {&fired, &passed}) timers->schedule(start, interval, true, [] {});
        while (*fired.nextDue() <= instant) fired.fireNext(*fired.nextDue());
        passed.passOver(instant);
        EXPECT_EQ(passed.nextDue(), fired.nextDue()) << start << ' ' << interval;
        passed.fireNext(*passed.nextDue());
        fired.fireNext(*fired.nextDue());
        EXPECT_EQ(passed.nextDue(), fired.nextDue());
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
