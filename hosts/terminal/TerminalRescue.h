// Puts a terminal back in order when the program crashes: its modes, and its screen by a text
// prepared beforehand. One may exist at a time.
//
// The signals are those of crashes only (SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL). After the
// rescue the signal does what it would have done without.
#pragma once

#include <string>

namespace wayfell {

class TerminalRescue {
 public:
  /// Remembers the terminal's modes as they are now, and what to write.
  TerminalRescue(int descriptor, std::string text);
  ~TerminalRescue();
  TerminalRescue(const TerminalRescue&) = delete;
  TerminalRescue& operator=(const TerminalRescue&) = delete;
};

}  // namespace wayfell
