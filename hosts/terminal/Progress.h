// Tells someone who waits how far a command has come: on standard error, only if that is a
// terminal, and only after a second.
#pragma once

#include <chrono>
#include <string>

namespace wayfell {

class Progress {
 public:
  Progress();
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Shows the text that a function makes, when it is time to. Cheap, so that it can be called for
  /// each event.
  template <class Text>
  void reach(Text text) {
    if (due()) show(text());
  }
  /// Takes the line away, before something else is written.
  void clear();

 private:
  bool due();
  void show(const std::string& text);

  bool terminal_;
  bool shown_ = false;
  unsigned calls_ = 0;
  std::chrono::steady_clock::time_point nextTime_;
};

}  // namespace wayfell
