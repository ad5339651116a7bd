#include "hosts/terminal/Progress.h"

#include <unistd.h>

#include <cstdio>

namespace wayfell {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kBetween{200};
constexpr unsigned kCallsBetweenLooksAtTheClock = 256;

}  // namespace

Progress::Progress()
    : terminal_(isatty(STDERR_FILENO) != 0),
      nextTime_(std::chrono::steady_clock::now() + kPatience) {}

bool Progress::due() {
  if (!terminal_ || ++calls_ % kCallsBetweenLooksAtTheClock != 0) return false;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextTime_) return false;
  nextTime_ = now + kBetween;
  return true;
}

void Progress::show(const std::string& text) {
  shown_ = true;
  std::fprintf(stderr, "\r%s", text.c_str());
}

void Progress::clear() {
  if (shown_) std::fputs("\r\033[K", stderr);
  shown_ = false;
}

}  // namespace wayfell
