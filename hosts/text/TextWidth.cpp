#include "hosts/text/TextWidth.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Unicode 15: general category Mn, Me and Cf, in the blocks that addresses are written with.
constexpr std::array kNoColumn = {
    Range{0x0300, 0x036F},   Range{0x0483, 0x0489}, Range{0x0591, 0x05BD}, Range{0x0610, 0x061A},
    Range{0x064B, 0x065F},   Range{0x0670, 0x0670}, Range{0x06D6, 0x06DC}, Range{0x093A, 0x093A},
    Range{0x093C, 0x093C},   Range{0x0941, 0x0948}, Range{0x094D, 0x094D}, Range{0x0E31, 0x0E31},
    Range{0x0E34, 0x0E3A},   Range{0x0E47, 0x0E4E}, Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF},
    Range{0x200B, 0x200F},   Range{0x202A, 0x202E}, Range{0x2060, 0x2064}, Range{0x20D0, 0x20FF},
    Range{0x3099, 0x309A},   Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}, Range{0xFEFF, 0xFEFF},
    Range{0xE0100, 0xE01EF},
};

// Unicode 15: East Asian width W and F.
constexpr std::array kTwoColumns = {
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x2329, 0x232A},
    Range{0x23E9, 0x23EC},   Range{0x2614, 0x2615},   Range{0x2E80, 0x303E},
    Range{0x3041, 0x4DBF},   Range{0x4E00, 0xA4CF},   Range{0xA960, 0xA97F},
    Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},   Range{0xFE10, 0xFE19},
    Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x16FE0, 0x18CFF}, Range{0x1AFF0, 0x1B2FF}, Range{0x1F200, 0x1F265},
    Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1F9FF},
    Range{0x1FA70, 0x1FAFF}, Range{0x20000, 0x3FFFD},
};

template <class Ranges>
bool contains(const Ranges& ranges, char32_t codePoint) {
  const auto range = std::find_if(ranges.begin(), ranges.end(),
                                  [codePoint](const Range& one) { return codePoint <= one.last; });
  return range != ranges.end() && codePoint >= range->first;
}

// Marks that turn the direction of writing, also of what stands after the text. UAX 9, section 2.
bool isDirection(char32_t codePoint) {
  return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
         (codePoint >= 0x202A && codePoint <= 0x202E) ||
         (codePoint >= 0x2066 && codePoint <= 0x2069);
}

}  // namespace

int columnsOf(char32_t codePoint) {
  if (codePoint < kNoColumn.front().first) return 1;
  if (contains(kNoColumn, codePoint)) return 0;
  return contains(kTwoColumns, codePoint) ? 2 : 1;
}

int columnsOf(std::string_view text) {
  int columns = 0;
  while (!text.empty()) columns += columnsOf(takeCodePoint(text).value_or(U'\uFFFD'));
  return columns;
}

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const char32_t codePoint = takeCodePoint(text).value_or(U'\uFFFD');
    if (isDirection(codePoint)) continue;
    const bool control = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
    appendCodePoint(result, control ? U' ' : codePoint);
  }
  return result;
}

std::string_view cut(std::string_view text, int columns) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t before = rest.size();
    columns -= columnsOf(takeCodePoint(rest).value_or(U'\uFFFD'));
    if (columns < 0) return text.substr(0, text.size() - before);
  }
  return text;
}

std::string fitted(std::string_view text, int columns) {
  if (columnsOf(text) <= columns) return std::string(text);
  return std::string(cut(text, columns - 1)) + "…";
}

std::vector<std::string> wrapped(std::string_view text, int columns) {
  std::vector<std::string> lines;
  while (columnsOf(text) > columns) {
    const std::size_t most = cut(text, std::max(2, columns)).size();
    const std::size_t blank = text.substr(0, most + 1).rfind(' ');
    const std::size_t end = blank == std::string_view::npos || blank == 0 ? most : blank;
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(text.find_first_not_of(' ', end), text.size()));
  }
  lines.emplace_back(text);
  return lines;
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace wayfell
