// Lets time between two events pass, without the firings that change nothing: a receiver that was
// off for a year is replayed as fast as one that was never off.
//
// Between two events only timers act. What an action does follows from what timers write, which is
// all in Stillness::State, and from what only events change, such as the settings and the fix; it
// never follows from the time. So when each timer has found a state and left it as it was, no
// firing changes anything any more, however many there are and in whatever order, and none need
// take place. A timer that fires only once may start anew what is still: it is waited for.
#pragma once

#include <array>
#include <optional>

#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

class Stillness {
 public:
  /// The widget must live on.
  explicit Stillness(ReplayedWidget& widget) : widget_(widget) {}

  /// As advanceTo of the run loop, with the same effect, for a time without an event.
  void advanceTo(double t);
  /// Whether no timer changes anything any more.
  bool reached() const;
  /// Something else than a timer has acted. What is tapped on the panel need not be told: timers
  /// do not read what a tap writes.
  void disturb() { state_.reset(); }

 private:
  /// All that the actions of timers write.
  struct State {
    explicit State(const ReplayedWidget& widget);
    double averageSpeed;
    bool zeroSpeed;
    PaceTimerClock paceTimerClock;
    std::array<std::optional<FormattedText>, 7> texts;
    friend bool operator==(const State&, const State&) = default;
  };

  void look();

  ReplayedWidget& widget_;
  std::optional<State> state_;
  double since_ = 0;  // when it was first found so
};

}  // namespace wayfell
