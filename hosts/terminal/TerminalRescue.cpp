#include "hosts/terminal/TerminalRescue.h"

#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <utility>

namespace wayfell {
namespace {

constexpr std::array kCrashes = {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL};

// A crash by exhausted stack leaves none to handle it on.
constexpr std::size_t kStackBytes = std::size_t{64} << 10U;

// What the handler needs, where it can reach it.
struct State {
  int descriptor = -1;
  termios modes = {};
  std::string text;
  std::array<struct sigaction, kCrashes.size()> actionsBefore = {};
  stack_t stackBefore = {};
};
State state;
std::array<std::byte, kStackBytes> handlerStack;

void giveBackSignals() {
  for (std::size_t i = 0; i < kCrashes.size(); ++i) {
    sigaction(kCrashes[i], &state.actionsBefore[i], nullptr);
  }
}

// Calls nothing but what is safe in a signal handler.
void rescue(int signal, siginfo_t* info, void* /*context*/) {
  const char* text = state.text.data();
  std::size_t left = state.text.size();
  while (left > 0) {
    const ssize_t written = write(state.descriptor, text, left);
    if (written <= 0) break;
    text += written;
    left -= static_cast<std::size_t>(written);
  }
  tcsetattr(state.descriptor, TCSANOW, &state.modes);
  giveBackSignals();
  // What has crashed crashes again on return. A signal that someone sent has to be sent again; it
  // is blocked until then.
  if (info->si_code <= 0) std::raise(signal);
}

}  // namespace

TerminalRescue::TerminalRescue(int descriptor, std::string text) {
  state.text = std::move(text);
  state.descriptor = descriptor;
  tcgetattr(descriptor, &state.modes);

  stack_t stack = {};
  stack.ss_sp = handlerStack.data();
  stack.ss_size = handlerStack.size();
  sigaltstack(&stack, &state.stackBefore);
  struct sigaction action = {};
  action.sa_sigaction = rescue;
  action.sa_flags = SA_ONSTACK | SA_SIGINFO;
  sigfillset(&action.sa_mask);
  for (std::size_t i = 0; i < kCrashes.size(); ++i) {
    sigaction(kCrashes[i], &action, &state.actionsBefore[i]);
  }
}

TerminalRescue::~TerminalRescue() {
  giveBackSignals();
  sigaltstack(&state.stackBefore, nullptr);
}

}  // namespace wayfell
