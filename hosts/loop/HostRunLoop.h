// What the hosts' run loops have in common: timers in a queue, actions that other threads hand in,
// the end of a turn, and what handlers throw. A loop of its own says how it sleeps and is woken.
//
// Handlers run one at a time within run(). What they throw ends the loop and comes out of run().
#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "hosts/loop/IoRunLoop.h"
#include "platform/TimerQueue.h"

namespace wayfell {

class HostRunLoop : public IoRunLoop {
 public:
  using Handler = std::function<void()>;

  /// Timers may fire up to 15 ms late, so that those due at almost one time need one wake-up.
  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) final;
  void cancelTimer(TimerId timer) final { timers_.cancel(timer); }
  void perform(std::function<void()> action) final;
  std::uint64_t turn() const final { return turn_; }

  /// Whenever all that had happened has been dealt with, before the loop sleeps.
  void onTurnEnd(Handler handler) {
    turnEnd_ = std::make_shared<const Handler>(std::move(handler));
  }

  /// Until stop() is called.
  void run();
  virtual void stop() = 0;

  /// Calls a handler from where nothing may be thrown through.
  void guard(const Handler& handler);

 protected:
  /// For a loop that ends: what its timers own may still need it.
  void cancelAllTimers() { timers_.cancelAll(); }
  /// Since any fixed time.
  virtual double seconds() = 0;
  /// Lets fireTimers be called once after so long, instead of what was asked for before; never if
  /// there is none.
  virtual void wakeAfter(std::optional<std::chrono::milliseconds> wait) = 0;
  /// Lets performPending be called soon, on the loop's thread. Comes from any thread.
  virtual void wake() = 0;
  /// Until stop() is called.
  virtual void runUntilStopped() = 0;

  void fireTimers();
  void performPending();
  void endTurn();

 private:
  void sleepUntilTimer();

  TimerQueue timers_;
  std::optional<double> wakeDate_;  // what was asked for last
  std::shared_ptr<const Handler> turnEnd_;
  std::uint64_t turn_ = 1;
  std::exception_ptr thrown_;
  std::mutex pendingMutex_;
  std::vector<Handler> pending_;
};

}  // namespace wayfell
