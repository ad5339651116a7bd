// Plays a recording to the widget on the simulated clock, as fast as it goes, and shows the widget
// on the way:
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

/// Spans between snapshots are not shorter, to make a difference to any clock.
inline constexpr double kShortestSpan = 0.001;  // seconds

/// Plays to the end, or until `show` returns false. `progress` is called with the time that has
/// been reached, for those who wait: first with the start, then before each later event and
/// on the way through long gaps. Throws what the recording throws; what was shown before then
/// stands.
void replay(Recording& recording, ReplayedWidget& widget, std::optional<double> every,
            const std::function<bool(ReplayedWidget& widget)>& show,
            const std::function<void(double t)>& progress);

}  // namespace wayfell
