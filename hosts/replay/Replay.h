// Plays a recording to the widget on the simulated clock, as fast as it goes, and shows the widget
// on the way:
// - the clock starts at the first event; timers due at or before an event fire before it;
// - at each event that asks for it;
// - every so many seconds from the start, as it then stands after all that happens at that
//   instant;
// - at the end, which is the last event.
#pragma once

#include <functional>
#include <optional>

#include "hosts/replay/Recording.h"
#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

class Replay {
 public:
  /// Not shorter, for a span to make a difference to any clock.
  static constexpr double kShortestSpan = 0.001;  // seconds

  /// Called each time the widget is to be shown. What it returns tells whether to go on.
  using Show = std::function<bool(ReplayedWidget& widget)>;
  /// Called with the time that has been reached, for those who wait: before each event, first of
  /// all with the start, and on the way through long gaps.
  using Progress = std::function<void(double t)>;

  Replay(std::optional<double> every, Show show, Progress progress)
      : every_(every), show_(std::move(show)), progress_(std::move(progress)) {}

  /// Plays to the end. Throws what the recording throws; what was shown before then stands.
  void play(Recording& recording, ReplayedWidget& widget) const;

 private:
  void advanceTo(double t, SimulatedRunLoop& loop) const;

  std::optional<double> every_;
  Show show_;
  Progress progress_;
};

}  // namespace wayfell
