#include "hosts/terminal/AsciiText.h"

#include <array>

#include "hosts/text/FoldedText.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

std::string asciiOf(char32_t codePoint) {
  struct Likeness {
    char32_t codePoint;
    char ascii;
  };
  static constexpr std::array kLikenesses = {
      Likeness{U'°', 'd'}, Likeness{U'×', 'x'},  Likeness{U'÷', '/'},  Likeness{U'–', '-'},
      Likeness{U'—', '-'}, Likeness{U'‘', '\''}, Likeness{U'’', '\''}, Likeness{U'…', '~'},
      Likeness{U'‹', '<'}, Likeness{U'›', '>'},  Likeness{U'→', '>'},  Likeness{U'─', '-'},
      Likeness{U'│', '|'}, Likeness{U'├', '+'},  Likeness{U'┤', '+'},  Likeness{U'╭', '+'},
      Likeness{U'╮', '+'}, Likeness{U'╯', '+'},  Likeness{U'╰', '+'},  Likeness{U'▸', '>'},
      Likeness{U'▼', 'v'}, Likeness{U'▽', 'v'},  Likeness{U'▾', 'v'},  Likeness{U'\u00A0', ' '},
  };
  if (codePoint < 0x80) return {static_cast<char>(codePoint)};
  for (const Likeness& one : kLikenesses) {
    if (one.codePoint == codePoint) return {one.ascii};
  }
  if (const char32_t base = baseLetter(codePoint); base < 0x80) return {static_cast<char>(base)};
  return repeated("?", columnsOf(codePoint));
}

}  // namespace

std::string asciiText(std::string_view text) {
  std::string result;
  while (!text.empty()) result += asciiOf(takeCodePoint(text).value_or(U'\uFFFD'));
  return result;
}

}  // namespace wayfell
