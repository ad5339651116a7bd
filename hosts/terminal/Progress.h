// Tells someone who waits how far a replay has come: on standard error, only if that is a
// terminal, and only after a second.
#pragma once

#include <chrono>

namespace wayfell {

class Progress {
 public:
  Progress();
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// The seconds that have been replayed; cheap, so that it can be called for each event.
  void reach(double seconds);
  /// Takes the line away, before something else is written.
  void clear();

 private:
  bool terminal_;
  bool shown_ = false;
  unsigned calls_ = 0;
  std::chrono::steady_clock::time_point nextTime_;
};

}  // namespace wayfell
