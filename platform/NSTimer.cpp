#include "platform/NSTimer.h"

#include <utility>

namespace wayfell {

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(double interval,
                                                                             bool repeats,
                                                                             Block block) {
  std::shared_ptr<NSTimer> timer(new NSTimer(interval));
  timer->id_ = Host::current().runLoop().scheduleTimer(interval, repeats,
                                                       [timer, repeats, block = std::move(block)] {
                                                         if (!repeats) timer->valid_ = false;
                                                         block(*timer);
                                                       });
  return timer;
}

void NSTimer::invalidate() {
  if (!valid_) return;
  valid_ = false;
  Host::current().runLoop().cancelTimer(id_);
}

}  // namespace wayfell
