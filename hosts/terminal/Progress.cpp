#include "hosts/terminal/Progress.h"

#include <unistd.h>

#include <cstdio>

#include "hosts/terminal/Elapsed.h"

namespace wayfell {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kBetween{200};
constexpr unsigned kCallsBetweenLooksAtTheClock = 256;

}  // namespace

Progress::Progress()
    : terminal_(isatty(STDERR_FILENO) != 0),
      nextTime_(std::chrono::steady_clock::now() + kPatience) {}

void Progress::reach(double seconds) {
  if (!terminal_ || ++calls_ % kCallsBetweenLooksAtTheClock != 0) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextTime_) return;
  nextTime_ = now + kBetween;
  shown_ = true;
  std::fprintf(stderr, "\rreplayed %s", elapsedText(seconds).c_str());
}

void Progress::clear() {
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

}  // namespace wayfell
