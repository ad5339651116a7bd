// A timer on the host's run loop. The run loop keeps the action, and with it all that the action
// holds, until the timer has fired for the last time or is invalidated.
#pragma once

#include <functional>
#include <memory>

#include "platform/Host.h"

namespace wayfell {

class NSTimer {
 public:
  using Block = std::function<void(const NSTimer&)>;

  /// Starts a timer that fires after `interval` seconds, once or for ever. The result may be
  /// dropped: the timer runs all the same.
  static std::shared_ptr<NSTimer> scheduledTimerWithTimeIntervalRepeatsBlock(double interval,
                                                                             bool repeats,
                                                                             Block block);

  /// Ends the timer. It never fires again, and the run loop lets go of the block.
  void invalidate();
  bool isValid() const { return valid_; }
  /// Seconds.
  double timeInterval() const { return interval_; }

 private:
  explicit NSTimer(double interval) : interval_(interval) {}
  double interval_;
  RunLoop::TimerId id_ = 0;
  bool valid_ = true;
};

}  // namespace wayfell
