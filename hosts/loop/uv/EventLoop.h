// The terminal's run loop: timers, descriptors and signals. On libuv.
#pragma once

#include <memory>

#include "hosts/loop/HostRunLoop.h"

struct uv_loop_s;

namespace wayfell {

class EventLoop : public HostRunLoop {
 public:
  EventLoop();
  ~EventLoop() override;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  WatchId watch(int descriptor, Readiness awaited,
                std::function<void(Readiness ready)> action) override;
  void unwatch(WatchId watch) override;

  /// There is something to read on a terminal, which stays blocking as others have it open too;
  /// `gone` tells that there never will be again. Throws std::system_error for what cannot be
  /// waited for.
  void onInput(int descriptor, Handler readable, Handler gone);
  /// Signals that the process ignored when it was started stay ignored.
  void onSignal(int signal, Handler handler);

  /// Lets a signal do what it does by default, to this process and now. For those with a handler.
  void raiseDefault(int signal);

  void stop() override;

 protected:
  double seconds() override;
  void wakeAfter(std::optional<std::chrono::milliseconds> wait) override;
  void wake() override;
  void runUntilStopped() override;

 private:
  struct Watchers;

  std::unique_ptr<uv_loop_s> loop_;
  std::unique_ptr<Watchers> watchers_;
};

}  // namespace wayfell
