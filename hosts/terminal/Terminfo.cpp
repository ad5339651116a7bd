#include "hosts/terminal/Terminfo.h"

#include <unistd.h>

#include <optional>
#include <string_view>

#include "hosts/terminal/MouseReport.h"

// Their macros have the names of much else, so they stay in here.
#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>

namespace wayfell {
namespace {

std::optional<std::string_view> capability(const char* name) {
  const char* text = tigetstr(name);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the library's own mark
  if (text == nullptr || text == reinterpret_cast<const char*>(-1)) return std::nullopt;
  return text;
}

// Without the pauses ("$<5>") that terminals of old needed.
std::string withoutPadding(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t padding = text.find("$<");
    result += text.substr(0, padding);
    const std::size_t end = text.find('>', padding);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return result;
}

}  // namespace

Terminfo readTerminfo() {
  int error = 0;
  if (setupterm(nullptr, STDOUT_FILENO, &error) != OK) return {};
  Terminfo terminfo{capability("cup").has_value(), capability("kmous").has_value(), ""};
  if (terminfo.hasMouse) terminfo.rescueText += MouseReport::kOff;
  for (const char* name : {"sgr0", "op", "cnorm", "rmkx"}) {
    terminfo.rescueText += withoutPadding(capability(name).value_or(""));
  }
  terminfo.rescueText += withoutPadding(capability("rmcup").value_or("\r\n"));
  del_curterm(cur_term);
  return terminfo;
}

}  // namespace wayfell
