#include "hosts/text/InputUntilSignal.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

#include "hosts/text/InputBytes.h"

namespace wayfell {
namespace {

constexpr std::chrono::seconds kBetweenCalls{1};
constexpr int kWithoutEnd = -1;  // milliseconds

sigset_t endings() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  return set;
}

}  // namespace

InputUntilSignal::InputUntilSignal(int descriptor) : descriptor_(descriptor) {
  const sigset_t set = endings();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  signals_ = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

InputUntilSignal::~InputUntilSignal() {
  if (signals_ >= 0) end();
}

std::size_t InputUntilSignal::read(char* buffer, std::size_t size) {
  if (!ended_) waitForMore();
  if (ended_) return 0;
  const std::size_t count = bytesOfFile(descriptor_)(buffer, size);
  news_ = true;
  return count;
}

void InputUntilSignal::waitForMore() {
  using std::chrono::milliseconds;
  if (news_ && onWait && !comes(0)) {
    const auto left = std::chrono::ceil<milliseconds>(nextCall_ - std::chrono::steady_clock::now());
    if (comes(static_cast<int>(std::max(left, milliseconds(0)).count()))) return;
    onWait();
    news_ = false;
    nextCall_ = std::chrono::steady_clock::now() + kBetweenCalls;
  }
  comes(kWithoutEnd);
}

bool InputUntilSignal::comes(int milliseconds) {
  std::array<pollfd, 2> both{{{descriptor_, POLLIN, 0}, {signals_, POLLIN, 0}}};
  const bool come = poll(both.data(), both.size(), milliseconds) > 0;
  if (come && both[1].revents != 0) end();
  return come;
}

void InputUntilSignal::end() {
  signalfd_siginfo taken{};
  ended_ = ::read(signals_, &taken, sizeof taken) > 0;
  close(std::exchange(signals_, -1));
  const sigset_t set = endings();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);  // the next one ends the program
}

}  // namespace wayfell
