// The terminal's run loop: timers, descriptors and signals. On libuv.
//
// Handlers run one at a time within run(). What they throw ends the loop and comes out of run().
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "hosts/services/IoRunLoop.h"
#include "platform/TimerQueue.h"

struct uv_loop_s;

namespace wayfell {

class EventLoop : public IoRunLoop {
 public:
  using Handler = std::function<void()>;

  EventLoop();
  ~EventLoop() override;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  /// Timers may fire up to 15 ms late, so that those due at almost one time need one wake-up.
  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) override;
  void cancelTimer(TimerId timer) override { timers_.cancel(timer); }
  void cancelAllTimers() override { timers_.cancelAll(); }
  WatchId watch(int descriptor, Readiness awaited,
                std::function<void(Readiness ready)> action) override;
  void unwatch(WatchId watch) override;
  void perform(std::function<void()> action) override;
  std::uint64_t turn() const override { return turn_; }

  /// There is something to read on a terminal, which stays blocking as others have it open too;
  /// `gone` tells that there never will be again. Throws std::system_error for what cannot be
  /// waited for.
  void onInput(int descriptor, Handler readable, Handler gone);
  /// Signals that the process ignored when it was started stay ignored.
  void onSignal(int signal, Handler handler);
  /// Whenever all that had happened has been dealt with, before the loop sleeps.
  void onTurnEnd(Handler handler) { turnEnd_ = std::move(handler); }

  /// Lets a signal do what it does by default, to this process and now. For those with a handler.
  void raiseDefault(int signal);

  void run();
  void stop();

 private:
  struct Watchers;
  void guard(const Handler& handler);
  void fireTimers();
  void performPending();
  void endTurn();
  void sleepUntilTimer();

  std::unique_ptr<uv_loop_s> loop_;
  std::unique_ptr<Watchers> watchers_;
  TimerQueue timers_;  // on the clock of libuv, in seconds
  Handler turnEnd_;
  std::uint64_t turn_ = 1;
  std::exception_ptr thrown_;
  std::mutex pendingMutex_;
  std::vector<Handler> pending_;
};

}  // namespace wayfell
