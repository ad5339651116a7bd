// The window's run loop: timers and descriptors, on Qt's event loop. There must be an application,
// and at most one of these in its thread.
//
// Handlers run one at a time within run(). What they throw ends the loop and comes out of run().
#pragma once

#include <QObject>
#include <QTimer>
#include <exception>
#include <functional>
#include <map>
#include <memory>

#include "hosts/services/IoRunLoop.h"
#include "platform/TimerQueue.h"

namespace wayfell {

class QtRunLoop : public IoRunLoop {
 public:
  using Handler = std::function<void()>;

  QtRunLoop();
  ~QtRunLoop() override;
  QtRunLoop(const QtRunLoop&) = delete;
  QtRunLoop& operator=(const QtRunLoop&) = delete;

  /// Timers may fire up to 15 ms late, so that those due at almost one time need one wake-up.
  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) override;
  void cancelTimer(TimerId timer) override;
  void cancelAllTimers() override;
  WatchId watch(int descriptor, Readiness awaited,
                std::function<void(Readiness ready)> action) override;
  void unwatch(WatchId watch) override;
  void perform(std::function<void()> action) override;
  std::uint64_t turn() const override { return turn_; }

  /// Whenever all that had happened has been dealt with, before the loop sleeps.
  void onTurnEnd(Handler handler) { turnEnd_ = std::move(handler); }

  /// Until stop() is called or the application is told to quit.
  void run();
  void stop();

  /// For what Qt calls by itself: nothing may be thrown through it.
  void guard(const Handler& handler);

 private:
  struct Watch;
  void fireTimers();
  void sleepUntilTimer();
  void endTurn();

  QObject context_;  // what Qt is to call goes with it
  QTimer timer_;
  TimerQueue timers_;  // in seconds since the machine has started
  std::map<WatchId, std::shared_ptr<Watch>> watches_;
  WatchId lastWatch_ = 0;
  Handler turnEnd_;
  std::uint64_t turn_ = 1;
  std::exception_ptr thrown_;
};

}  // namespace wayfell
