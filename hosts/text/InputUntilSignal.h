// What comes through a pipe or from a terminal, until its end or until the user ends it: Ctrl-C
// (SIGINT) and SIGTERM are its end, too, so that what has come can still be used.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

namespace wayfell {

class InputUntilSignal {
 public:
  /// Until the first signal, or the end of this, the two signals do not end the program.
  explicit InputUntilSignal(int descriptor);
  ~InputUntilSignal();
  InputUntilSignal(const InputUntilSignal&) = delete;
  InputUntilSignal& operator=(const InputUntilSignal&) = delete;

  /// Called after something has been read and nothing more has come, at most once a second.
  std::function<void()> onWait;

  /// As a ByteSource does. Throws InputError.
  std::size_t read(char* buffer, std::size_t size);

 private:
  /// Whether input or the end has come, at the latest after some milliseconds; -1: without end.
  bool comes(int milliseconds);
  void waitForMore();
  void end();

  int descriptor_;
  int signals_;
  bool ended_ = false;
  bool news_ = false;  // since onWait was called
  std::chrono::steady_clock::time_point nextCall_;
};

}  // namespace wayfell
