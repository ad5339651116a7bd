// A connection to a gpsd that is kept up: it waits for a daemon that is not there, comes back to
// one that was restarted, and leaves one that has stopped talking. Nothing in it blocks.
//
// The daemon is asked for reports as soon as it is reached, at each of its addresses in turn. After
// a failure the link waits (RetryDelay), until a report shows that the daemon is worth it. A
// daemon that is silent is asked for its version: one without a receiver answers, one that hangs
// does not, and is left two to three ticks after its last word. So is one whose address does not
// take the connection, and whatever else listens there but does not write as gpsd does.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/loop/HostRunLoop.h"
#include "hosts/services/RetryDelay.h"
#include "hosts/services/location/GpsdAddress.h"
#include "hosts/services/location/NameLookup.h"
#include "hosts/text/LineBuffer.h"

namespace wayfell {

/// Seconds.
struct GpsdIntervals {
  RetryDelays retry = {};  ///< before the next attempt to connect
  /// How often the link, and what comes over it, is looked after while it is up.
  double tick = 3;
  /// How long a fix may wait for those of its parts that gpsd reports late.
  double parts = 0.3;
};

class GpsdLink {
 public:
  enum class Status { closed, resolving, connecting, waiting, open };

  /// A handler may close and reopen the link, but not destroy it.
  struct Handlers {
    std::function<void()> statusChanged;
    /// One of gpsd's objects.
    std::function<void(std::string_view line)> lineCame;
    /// Every tick while the link is open.
    std::function<void()> ticked;
  };

  GpsdLink(IoRunLoop& loop, GpsdAddress address, const GpsdIntervals& intervals, Handlers handlers);
  ~GpsdLink() { close(); }

  void open();
  /// Leaves no descriptor watched and no timer running, and calls no handler.
  void close();
  /// What came over the link was worth it: the next delay is the first one again.
  void prove() { delay_.succeeded(); }

  Status status() const { return status_; }
  /// Why the last attempt failed, until one succeeds; empty when none has failed.
  const std::string& failure() const { return failure_; }
  /// While waiting.
  std::chrono::steady_clock::time_point nextAttempt() const { return nextAttempt_; }

 private:
  void resolve();
  void connectToNext();
  void finishConnecting();
  void greet();
  void read();
  bool send(std::string_view request);
  void waitForTick();
  void tick();
  void watch(IoRunLoop::Readiness awaited, std::function<void()> action);
  void setStatus(Status status);
  void giveUpSocket();
  void disconnect();
  void fail(std::string why);

  IoRunLoop& loop_;
  const GpsdAddress address_;
  const GpsdIntervals intervals_;
  const Handlers handlers_;

  Status status_ = Status::closed;
  std::string failure_;
  std::chrono::steady_clock::time_point nextAttempt_;
  RetryDelay delay_;

  std::unique_ptr<NameLookup> lookup_;
  std::shared_ptr<addrinfo> addresses_;
  const addrinfo* nextAddress_ = nullptr;
  int socket_ = -1;
  IoRunLoop::WatchId watch_ = 0;
  RunLoop::TimerId timer_ = 0;  // for the next attempt, or the tick
  LineBuffer lines_;
  std::size_t connection_ = 0;  // counts them, to notice in a handler's wake that one has ended
  bool heard_ = false;          // since the last tick
  int silentTicks_ = 0;
};

/// Whether a gpsd says something there, for a program that decides at its start what to stand on.
/// Runs the loop until it is known, but not longer than so many seconds; that nobody listens on the
/// port is known at once.
bool gpsdAnswers(HostRunLoop& loop, const GpsdAddress& address, double longest = 0.3);

}  // namespace wayfell
