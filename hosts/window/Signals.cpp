#include "hosts/window/Signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace wayfell {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal's handler may do little more than write.
int writeEnd = -1;

void note(int signal) {
  const int error = errno;
  const auto byte = static_cast<unsigned char>(signal);
  [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
  errno = error;
}

void handleAll(void (*handler)(int)) {
  for (const int signal : kSignals) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) continue;
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

Signals::Signals(IoRunLoop& loop, std::function<void(int signal)> handler)
    : loop_(loop), handler_(std::move(handler)) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "waiting for signals");
  }
  readEnd_ = ends[0];
  writeEnd = ends[1];
  watch_ = loop_.watch(readEnd_, {.readable = true}, [this](auto) { take(); });
  handleAll(note);
}

Signals::~Signals() {
  handleAll(SIG_DFL);
  loop_.unwatch(watch_);
  close(readEnd_);
  close(std::exchange(writeEnd, -1));
}

void Signals::take() const {
  unsigned char signal = 0;
  while (read(readEnd_, &signal, 1) == 1) handler_(signal);
}

}  // namespace wayfell
