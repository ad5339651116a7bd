// A run loop that also waits for descriptors: what services that talk to the world stand on. Each
// host has its own; all that happens in it happens on its one thread.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/Host.h"

namespace wayfell {

class IoRunLoop : public RunLoop {
 public:
  using WatchId = std::uint64_t;

  /// What a descriptor is ready for. A connection that has ended or failed is ready for both, as
  /// far as it was asked for: the read or write that follows tells.
  struct Readiness {
    bool readable = false;
    bool writable = false;
  };

  /// Calls the action in each turn in which the descriptor is ready for some of what is awaited.
  /// The descriptor becomes non-blocking; it may be watched once at a time, and is to be unwatched
  /// before it is closed. Throws std::system_error for what cannot be waited for.
  virtual WatchId watch(int descriptor, Readiness awaited,
                        std::function<void(Readiness ready)> action) = 0;
  /// The action is released and never called again. Unknown watches are ignored.
  virtual void unwatch(WatchId watch) = 0;

  /// Calls the action once, soon, on the loop's thread. The only call that other threads may make.
  virtual void perform(std::function<void()> action) = 0;

  /// Counts the times that the loop has woken: what is done under one number is done in one turn.
  virtual std::uint64_t turn() const = 0;
};

}  // namespace wayfell
