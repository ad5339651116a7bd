// The timers that a widget has set. It never ends most of them by itself, so its host does, without
// touching the services' timers on the same loop.
#pragma once

#include <set>

#include "platform/Host.h"

namespace wayfell {

class WidgetTimers : public RunLoop {
 public:
  /// The loop, on which they run, must live on.
  explicit WidgetTimers(RunLoop& loop) : loop_(loop) {}
  ~WidgetTimers() override { cancelAll(); }
  WidgetTimers(const WidgetTimers&) = delete;
  WidgetTimers& operator=(const WidgetTimers&) = delete;

  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) override;
  void cancelTimer(TimerId timer) override;
  /// Releases whatever their actions own.
  void cancelAll();

 private:
  RunLoop& loop_;
  std::set<TimerId> running_;
};

}  // namespace wayfell
