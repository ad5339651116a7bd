// Waits for what happens outside: input, signals, and the end of a wait. On libuv.
//
// Handlers run one at a time within run(). What they throw ends the loop and comes out of run().
#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct uv_loop_s;

namespace wayfell {

class EventLoop {
 public:
  using Handler = std::function<void()>;

  EventLoop();
  ~EventLoop();
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  /// There is something to read; `gone` tells that there never will be again. Throws
  /// std::system_error for what cannot be waited for.
  void onReadable(int descriptor, Handler readable, Handler gone);
  /// Signals that the process ignored when it was started stay ignored.
  void onSignal(int signal, Handler handler);
  /// Once, unless another wait is set before.
  void onWaited(Handler handler);
  void setWait(std::optional<std::chrono::milliseconds> wait);

  /// Lets a signal do what it does by default, to this process and now. For those with a handler.
  void raiseDefault(int signal);

  void run();
  void stop();

 private:
  struct Watchers;
  void guard(const Handler& handler);

  std::unique_ptr<uv_loop_s> loop_;
  std::unique_ptr<Watchers> watchers_;
  std::exception_ptr thrown_;
};

}  // namespace wayfell
