// The timers of a run loop: which is due when, and in which order they fire. The run loop says
// what time it is, in seconds of a clock of its own.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>

#include "platform/Host.h"

namespace wayfell {

class TimerQueue {
 public:
  /// Due at now + interval or, if it repeats, at now + n x interval, so that firing dates do not
  /// drift.
  RunLoop::TimerId schedule(double now, double interval, bool repeats,
                            std::function<void()> action);
  /// The action is released and never called again, unless it is running just now: then it is
  /// released when it has ended. Unknown and ended timers are ignored.
  void cancel(RunLoop::TimerId timer);
  void cancelAll();

  /// When the first one is due; none without timers.
  std::optional<double> nextDue() const;
  /// Fires the timer that is due first; of those due at one instant, the one created first. If it
  /// repeats, it is due next at the first of its dates after `now`: firings that were missed are
  /// not made up for.
  void fireNext(double now);
  /// Lets the dates of repeating timers up to and at an instant pass without firing them. Each is
  /// due next at the very date at which it would be if it had fired all the time.
  void passOver(double t);
  /// Within how many seconds each timer fires; none if there is none, or if one fires only once.
  std::optional<double> period() const;

  std::size_t countWithInterval(double interval) const;

 private:
  struct Timer {
    double start;
    double interval;
    bool repeats;
    double firings;  // so far, missed ones included
    double due;
    std::function<void()> action;
  };
  using Timers = std::map<RunLoop::TimerId, Timer>;
  static bool isDueBefore(const Timers::value_type& a, const Timers::value_type& b) {
    return a.second.due < b.second.due;
  }

  Timers timers_;  // ids grow, so their order is the order of creation
  RunLoop::TimerId lastId_ = 0;
};

}  // namespace wayfell
