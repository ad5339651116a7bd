#include "hosts/loop/HostRunLoop.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace wayfell {
namespace {

constexpr double kTimerSlack = 0.010;    // seconds
constexpr double kLongestSleep = 86400;  // seconds

}  // namespace

RunLoop::TimerId HostRunLoop::scheduleTimer(double interval, bool repeats,
                                            std::function<void()> action) {
  const TimerId id = timers_.schedule(seconds(), interval, repeats, std::move(action));
  sleepUntilTimer();
  return id;
}

// Each that is due fires once, those that fall due meanwhile in the next turn.
void HostRunLoop::fireTimers() {
  wakeDate_.reset();
  const double now = seconds();
  for (auto due = timers_.nextDue(); due && *due <= now; due = timers_.nextDue()) {
    guard([this, now] { timers_.fireNext(now); });
  }
  sleepUntilTimer();
}

void HostRunLoop::sleepUntilTimer() {
  const auto due = timers_.nextDue();
  if (due == wakeDate_) return;
  wakeDate_ = due;
  if (!due) return wakeAfter(std::nullopt);
  const double wait = std::clamp(*due - seconds() + kTimerSlack, 0.0, kLongestSleep);
  wakeAfter(std::chrono::milliseconds(static_cast<int>(std::ceil(wait * 1000))));
}

void HostRunLoop::endTurn() {
  if (const auto handler = turnEnd_) guard(*handler);
  ++turn_;
  sleepUntilTimer();
}

void HostRunLoop::perform(std::function<void()> action) {
  {
    const std::lock_guard lock(pendingMutex_);
    pending_.push_back(std::move(action));
  }
  wake();
}

void HostRunLoop::performPending() {
  std::vector<Handler> actions;
  {
    const std::lock_guard lock(pendingMutex_);
    actions.swap(pending_);
  }
  for (const Handler& action : actions) guard(action);
}

void HostRunLoop::run() {
  runUntilStopped();
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
}

void HostRunLoop::guard(const Handler& handler) {
  try {
    handler();
  } catch (...) {
    thrown_ = std::current_exception();
    stop();
  }
}

}  // namespace wayfell
