#include "hosts/terminal/AsciiText.h"

#include <array>

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
      Likeness{U'°', 'd'},  Likeness{U'×', 'x'},  Likeness{U'–', '-'}, Likeness{U'—', '-'},
      Likeness{U'‘', '\''}, Likeness{U'’', '\''}, Likeness{U'…', '~'}, Likeness{U'‹', '<'},
      Likeness{U'›', '>'},  Likeness{U'→', '>'},  Likeness{U'─', '-'}, Likeness{U'│', '|'},
      Likeness{U'├', '+'},  Likeness{U'┤', '+'},  Likeness{U'╭', '+'}, Likeness{U'╮', '+'},
      Likeness{U'╯', '+'},  Likeness{U'╰', '+'},  Likeness{U'▸', '>'}, Likeness{U'▼', 'v'},
      Likeness{U'▾', 'v'},
  };
  // From U+00C0 to U+00FF.
  static constexpr std::string_view kLetters =
      "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYTsaaaaaaaceeeeiiiidnooooo/ouuuuyty";
  if (codePoint < 0x80) return {static_cast<char>(codePoint)};
  for (const Likeness& one : kLikenesses) {
    if (one.codePoint == codePoint) return {one.ascii};
  }
  if (codePoint >= 0xC0 && codePoint < 0x100) return {kLetters[codePoint - 0xC0]};
  return repeated("?", columnsOf(codePoint));
}

}  // namespace

std::string asciiText(std::string_view text) {
  std::string result;
  while (!text.empty()) result += asciiOf(takeCodePoint(text).value_or(U'\uFFFD'));
  return result;
}

}  // namespace wayfell
