#include "platform/TimerQueue.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wayfell {
namespace {

// A repeating timer with no interval would be due for ever. The figure is the platform's.
constexpr double kShortestInterval = 0.0001;  // seconds

}  // namespace

RunLoop::TimerId TimerQueue::schedule(double now, double interval, bool repeats,
                                      std::function<void()> action) {
  if (repeats) interval = std::max(interval, kShortestInterval);
  timers_.emplace(++lastId_, Timer{now, interval, repeats, 0, now + interval, std::move(action)});
  return lastId_;
}

void TimerQueue::cancel(RunLoop::TimerId timer) {
  // The action may own what is running just now: it goes only after the map is in order again.
  const auto ended = timers_.extract(timer);
}

void TimerQueue::cancelAll() { const Timers ended = std::exchange(timers_, {}); }

std::optional<double> TimerQueue::nextDue() const {
  const auto next = std::min_element(timers_.begin(), timers_.end(), isDueBefore);
  if (next == timers_.end()) return std::nullopt;
  return next->second.due;
}

void TimerQueue::fireNext(double now) {
  // min_element gives the first of equals, which is the one created first.
  const auto next = std::min_element(timers_.begin(), timers_.end(), isDueBefore);
  if (next == timers_.end()) return;
  Timer& timer = next->second;
  if (!timer.repeats) {
    const auto ended = timers_.extract(next);
    ended.mapped().action();
    return;
  }
  timer.firings += 1;
  timer.firings = std::max(timer.firings, std::floor((now - timer.start) / timer.interval));
  timer.due = timer.start + (timer.firings + 1) * timer.interval;
  // Out of the map while it runs, because the action may cancel its own timer.
  const RunLoop::TimerId id = next->first;
  auto action = std::move(timer.action);
  action();
  const auto again = timers_.find(id);
  if (again != timers_.end()) again->second.action = std::move(action);
}

void TimerQueue::passOver(double t) {
  for (auto& [id, timer] : timers_) {
    if (!timer.repeats || timer.due > t) continue;
    // The quotient is rounded, so it may be one too many; the dates themselves decide.
    timer.firings = std::max(timer.firings, std::floor((t - timer.start) / timer.interval) - 1);
    while ((timer.due = timer.start + (timer.firings + 1) * timer.interval) <= t) ++timer.firings;
  }
}

std::optional<double> TimerQueue::period() const {
  std::optional<double> longest;
  for (const auto& [id, timer] : timers_) {
    if (!timer.repeats) return std::nullopt;
    longest = std::max(longest.value_or(0), timer.interval);
  }
  return longest;
}

std::size_t TimerQueue::countWithInterval(double interval) const {
  return static_cast<std::size_t>(
      std::count_if(timers_.begin(), timers_.end(),
                    [interval](const auto& entry) { return entry.second.interval == interval; }));
}

}  // namespace wayfell
