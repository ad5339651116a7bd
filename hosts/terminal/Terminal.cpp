#include "hosts/terminal/Terminal.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "hosts/panel/PanelKeys.h"
#include "hosts/terminal/AsciiText.h"
#include "hosts/terminal/Terminfo.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

#define NCURSES_NOMACROS
#include <curses.h>

namespace wayfell {
namespace {

// Within which the rest of a key's sequence comes, over slow lines too.
constexpr int kEscapeMilliseconds = 300;
// Numbers for what introduces a report of the mouse, beyond those of keys. ncurses has its own way
// with a mouse, in which getch() waits for more after some reports even if it is told not to.
constexpr int kSgrReport = KEY_MAX + 1;
constexpr int kX10Report = KEY_MAX + 2;

// The locale of the environment tells what the terminal can show. One that names UTF-8 but is not
// installed, as over ssh, still does.
bool localeIsUnicode() {
  if (std::setlocale(LC_CTYPE, "") == nullptr) {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
      const char* value = std::getenv(name);
      if (value == nullptr || *value == '\0') continue;
      const std::string_view locale = value;
      const bool utf8 = locale.ends_with(".UTF-8") || locale.ends_with(".utf8");
      std::setlocale(LC_CTYPE, utf8 ? "C.UTF-8" : "C");
      break;
    }
  }
  return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

bool wantsColors() {
  const char* noColor = std::getenv("NO_COLOR");
  return noColor == nullptr || *noColor == '\0';
}

std::FILE* openKeyboard() {
  if (isatty(STDIN_FILENO) != 0) return stdin;
  std::FILE* terminal = std::fopen("/dev/tty", "re");
  if (terminal == nullptr) {
    throw std::runtime_error("there is no keyboard: standard input is no terminal");
  }
  return terminal;
}

screen* openScreen(std::FILE* keyboard) {
  set_escdelay(kEscapeMilliseconds);
  use_tioctl(TRUE);
  screen* opened = newterm(nullptr, stdout, keyboard);
  if (opened == nullptr) throw std::runtime_error("this terminal cannot be used");
  return opened;
}

}  // namespace

bool Terminal::isThere() { return isatty(STDOUT_FILENO) != 0 && readTerminfo().canPlaceText; }

Terminal::Terminal()
    : keyboard_(openKeyboard()),
      unicode_(localeIsUnicode()),
      rescue_(STDOUT_FILENO, readTerminfo().rescueText),
      hasMouse_(readTerminfo().hasMouse),
      screen_(openScreen(keyboard_)),
      colors_(wantsColors() && has_colors()) {
  if (unicode_) std::setlocale(LC_MESSAGES, "");  // for the reasons that the system gives
  cbreak();
  noecho();
  keypad(stdscr, TRUE);
  nodelay(stdscr, TRUE);
  curs_set(0);
  if (hasMouse_) {
    define_key(MouseReport::kSgrStart, kSgrReport);
    define_key(MouseReport::kX10Start, kX10Report);
  }
  askForMouse(true);
  if (!colors_) return;
  start_color();
  use_default_colors();
  init_pair(static_cast<short>(TerminalColor::red), COLOR_RED, -1);
  init_pair(static_cast<short>(TerminalColor::green), COLOR_GREEN, -1);
  init_pair(static_cast<short>(TerminalColor::blackOnCyan), COLOR_BLACK, COLOR_CYAN);
}

Terminal::~Terminal() {
  suspend();
  delscreen(screen_);
  if (keyboard_ != stdin) std::fclose(keyboard_);
}

int Terminal::keyboard() const { return fileno(keyboard_); }

std::optional<TerminalInput> Terminal::read() {
  for (int key = getch(); key != ERR; key = getch()) {
    if (mouseReport_) {
      if (!mouseReport_->take(key)) continue;
      const auto click = std::exchange(mouseReport_, std::nullopt)->click();
      if (click) return *click;
      continue;
    }
    switch (key) {
      case kSgrReport:
        mouseReport_.emplace(MouseReport::Form::sgr);
        break;
      case kX10Report:
        mouseReport_.emplace(MouseReport::Form::x10);
        break;
      case KEY_RIGHT:
        return KeyPress{kRightKey};
      case KEY_ENTER:
      case '\r':
        return KeyPress{kEnterKey};
      default:
        if (key < KEY_MIN) return KeyPress{static_cast<char32_t>(key)};
    }
  }
  return std::nullopt;
}

void Terminal::askForMouse(bool on) const {
  if (!hasMouse_) return;
  const std::string_view text = on ? MouseReport::kOn : MouseReport::kOff;
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

int Terminal::rows() const { return getmaxy(stdscr); }
int Terminal::columns() const { return getmaxx(stdscr); }

void Terminal::clear() { erase(); }

void Terminal::put(int row, int column, std::string_view text, TerminalLook look) {
  if (row < 0 || row >= rows() || column < 0 || column >= columns()) return;
  const std::string_view visible = cut(text, columns() - column);
  const std::string shown = unicode_ ? std::string(visible) : asciiText(visible);
  attrset(static_cast<int>(attributes(look)));
  mvaddnstr(row, column, shown.data(), static_cast<int>(shown.size()));
}

void Terminal::show() { refresh(); }

unsigned Terminal::attributes(TerminalLook look) const {
  unsigned attributes = A_NORMAL;
  if (look.bold) attributes |= A_BOLD;
  if (look.dim) attributes |= A_DIM;
  const bool colored = colors_ && look.color != TerminalColor::none;
  if (look.reverse || (!colored && look.color == TerminalColor::blackOnCyan)) {
    attributes |= A_REVERSE;
  }
  if (colored) attributes |= static_cast<unsigned>(COLOR_PAIR(static_cast<int>(look.color)));
  return attributes;
}

void Terminal::resize() {
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0) return;
  resize_term(size.ws_row, size.ws_col);
  clearok(curscr, TRUE);  // the terminal may have moved what was on it
}

void Terminal::suspend() {
  askForMouse(false);
  endwin();
}

void Terminal::resume() {
  resize();
  clearok(curscr, TRUE);
  refresh();  // which stops a program in the background
  askForMouse(true);
}

}  // namespace wayfell
