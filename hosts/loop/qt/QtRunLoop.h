// The window's run loop: timers and descriptors, on Qt's event loop. There must be an application,
// and at most one of these in its thread.
#pragma once

#include <QObject>
#include <QTimer>
#include <map>
#include <memory>

#include "hosts/loop/HostRunLoop.h"

namespace wayfell {

class QtRunLoop : public HostRunLoop {
 public:
  QtRunLoop();
  ~QtRunLoop() override;
  QtRunLoop(const QtRunLoop&) = delete;
  QtRunLoop& operator=(const QtRunLoop&) = delete;

  WatchId watch(int descriptor, Readiness awaited,
                std::function<void(Readiness ready)> action) override;
  void unwatch(WatchId watch) override;
  void stop() override;

 protected:
  double seconds() override;
  void wakeAfter(std::optional<std::chrono::milliseconds> wait) override;
  void wake() override;
  /// Also until the application is told to quit.
  void runUntilStopped() override;

 private:
  struct Watch;

  QObject context_;  // what Qt is to call goes with it
  QTimer timer_;
  std::map<WatchId, std::shared_ptr<Watch>> watches_;
  WatchId lastWatch_ = 0;
};

}  // namespace wayfell
