// A terminal as a screen of characters with a keyboard and a mouse. On ncurses.
//
// From construction to destruction the terminal shows the screen; then, or when the program
// crashes, it is as it was before. What is put on the screen appears with show(), which writes only
// what has changed.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "hosts/terminal/MouseReport.h"
#include "hosts/terminal/TerminalRescue.h"

struct screen;  // of ncurses

namespace wayfell {

enum class TerminalColor { none, red, green, blackOnCyan };

/// Colours are left out where the terminal has none or NO_COLOR is set.
struct TerminalLook {
  bool bold = false;
  bool dim = false;
  bool reverse = false;
  TerminalColor color = TerminalColor::none;
};

/// A character, or one of the two below it.
struct KeyPress {
  char32_t key = 0;
};
using TerminalInput = std::variant<KeyPress, Click>;

class Terminal {
 public:
  /// Whether standard output is a terminal on which texts can be placed; false also for one that
  /// the terminfo database does not know.
  static bool isThere();

  /// Standard output, where isThere(), is the screen. The keys come from standard input or, when
  /// that is something else, from the controlling terminal. Throws std::runtime_error when they
  /// cannot.
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// The descriptor on which to wait for keys and clicks.
  int keyboard() const;
  /// What has been typed or clicked; none when that is all for now. Never waits for long.
  std::optional<TerminalInput> read();

  int rows() const;
  int columns() const;
  /// Whether all of Unicode can be shown; otherwise put() falls back to ASCII.
  bool unicode() const { return unicode_; }

  void clear();
  /// What has no room on the screen is cut off.
  void put(int row, int column, std::string_view text, TerminalLook look = {});
  void show();

  /// Takes the size that the terminal now has.
  void resize();
  /// Gives the terminal back for a time, and takes it again, with all that was shown.
  void suspend();
  void resume();

 private:
  unsigned attributes(TerminalLook look) const;
  void askForMouse(bool on) const;

  std::FILE* keyboard_;
  bool unicode_;
  TerminalRescue rescue_;
  bool hasMouse_;
  screen* screen_;
  bool colors_;
  std::optional<MouseReport> mouseReport_;  // that has begun
};

}  // namespace wayfell
