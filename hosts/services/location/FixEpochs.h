// One fix an instant. gpsd reports the first instants of a receiver in parts, sentence by sentence:
// position and speed, then the altitude, then the errors, all with one time or with none yet.
// Later, when it has learned which sentence ends an instant, it reports each in one piece.
//
// The parts of one time are put together, and given as one fix as soon as it has all that the fix
// before had, counting what came too late for that. What is still missing is waited for; the
// caller keeps the time and calls finish(). A part of another time, earlier or later, ends the
// wait. What comes after a fix was given and has its time is dropped, so no time is given twice in
// a row; a time that goes back, as when a receiver is reset, is just another time.
//
// Parts without a time belong to the part with a time that follows. A receiver that has never told
// the time has its fixes timed as they come.
#pragma once

#include <optional>
#include <vector>

#include "hosts/services/location/GpsdFix.h"

namespace wayfell {

class FixEpochs {
 public:
  /// The fixes that are done now, oldest first.
  std::vector<CLLocation> add(const GpsdFix& part);
  /// Whether there are parts of a fix that is not done.
  bool isWaiting() const { return pending_.has_value(); }
  /// Gives what there is: nothing more is to be waited for.
  std::vector<CLLocation> finish(NSDate now);
  /// Forgets all, for another daemon.
  void reset() { *this = {}; }

 private:
  CLLocation give(NSDate instant);

  std::optional<GpsdFix> pending_;
  std::optional<NSDate> given_;      // the time of the last fix that had one
  std::optional<GpsdFix> expected_;  // what a whole fix has; everything until the first
};

}  // namespace wayfell
