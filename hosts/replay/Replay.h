// Plays a recording to the widget on the simulated clock, as fast as it goes, and shows the widget
// on the way:
// - at each event that asks for it;
// - every so many seconds from the start, as it then stands after all that happens at that
//   instant;
// - at the end, which is the last event.
// In a gap in which nothing changes it is not shown many thousand times as the same.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "hosts/replay/Recording.h"
#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

/// Spans between snapshots are not shorter, to make a difference to any clock.
inline constexpr double kShortestSpan = 0.001;  // seconds

/// More than this many that differ in their time alone are left out, but for the first and the
/// last.
inline constexpr double kMostAlike = 10000;

struct ReplayOutput {
  /// Returns false when the replay may end.
  std::function<bool(ReplayedWidget& widget)> show;
  /// The time that has been reached, for those who wait: first the start, then before each later
  /// event and on the way through long gaps.
  std::function<void(double t)> progress = [](double) {};
  /// What has been left out.
  std::function<void(const std::string& note)> note = [](const std::string&) {};
};

/// Plays to the end, or until `show` returns false. Throws what the recording throws, when all that
/// could be read has been shown to its end.
void replay(Recording& recording, ReplayedWidget& widget, std::optional<double> every,
            const ReplayOutput& output);

}  // namespace wayfell
