#include "hosts/replay/Replay.h"

#include <limits>

namespace wayfell {
namespace {

// After so much of a gap between events those who wait hear of it.
constexpr double kStretch = 600;  // seconds

// The instants of the timed snapshots, none of which drifts.
class Beat {
 public:
  Beat(NSDate start, std::optional<double> every)
      : start_(start.timeIntervalSinceReferenceDate), every_(every) {}
  double due() const {
    return every_ ? start_ + count_ * *every_ : std::numeric_limits<double>::infinity();
  }
  void goOn() { count_ += 1; }

 private:
  double start_;
  std::optional<double> every_;
  double count_ = 1;
};

}  // namespace

void Replay::advanceTo(double t, SimulatedRunLoop& loop) const {
  double now = loop.now().timeIntervalSinceReferenceDate;
  progress_(now);
  while (now + kStretch < t) {
    now += kStretch;
    loop.advanceTo({now});
    progress_(now);
  }
  loop.advanceTo({t});
}

void Replay::play(Recording& recording, ReplayedWidget& widget) const {
  SimulatedRunLoop& loop = widget.host().loop;
  std::optional<Event> event = recording.next();
  if (event) loop.startAt({event->t});
  Beat beat(loop.now(), every_);
  while (event) {
    const double t = event->t;
    advanceTo(t, loop);
    widget.apply(event->action);
    if (std::holds_alternative<event::Show>(event->action) && !show_(widget)) return;
    event = recording.next();
    if (!event) widget.start();
    // What happens at an instant is over once a later event comes next, or none.
    while (event ? beat.due() < event->t : beat.due() <= t) {
      advanceTo(beat.due(), loop);
      if (!show_(widget)) return;
      beat.goOn();
    }
  }
  show_(widget);
}

}  // namespace wayfell
