// What the process is told from outside: to end.
#pragma once

#include <functional>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

/// Calls the handler on the loop's thread for each SIGINT, SIGTERM and SIGHUP that was not ignored
/// when the program was started. One at a time may exist.
class Signals {
 public:
  Signals(IoRunLoop& loop, std::function<void(int signal)> handler);
  ~Signals();
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

 private:
  void take() const;

  IoRunLoop& loop_;
  std::function<void(int signal)> handler_;
  int readEnd_ = -1;
  IoRunLoop::WatchId watch_ = 0;
};

}  // namespace wayfell
