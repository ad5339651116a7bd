#include "hosts/live/WidgetTimers.h"

#include <memory>
#include <utility>

namespace wayfell {

RunLoop::TimerId WidgetTimers::scheduleTimer(double interval, bool repeats,
                                             std::function<void()> action) {
  const auto id = std::make_shared<TimerId>();
  *id = loop_.scheduleTimer(interval, repeats, [this, id, repeats, action = std::move(action)] {
    if (!repeats) running_.erase(*id);
    action();
  });
  running_.insert(*id);
  return *id;
}

void WidgetTimers::cancelTimer(TimerId timer) {
  running_.erase(timer);
  loop_.cancelTimer(timer);
}

void WidgetTimers::cancelAll() {
  // What an action owns may cancel timers when it goes.
  for (const TimerId timer : std::exchange(running_, {})) loop_.cancelTimer(timer);
}

}  // namespace wayfell
