#include "hosts/text/TextWidth.h"

#include <unictype.h>
#include <unigbrk.h>
#include <unilbrk.h>
#include <uniwidth.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "hosts/text/Characters.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

constexpr const char* kEncoding = "UTF-8";  // in which characters of ambiguous width take one

struct Range {
  char32_t first;
  char32_t last;
  int columns;
};

// ncurses counts by the C library. Here libunistring 1.0 has other widths than glibc 2.36: the soft
// hyphen and signs before Arabic, Syriac and Kaithi numbers; vowel signs of Kannada, Zanabazar
// Square and Bhaiksuki; circled numbers; hexagrams.
constexpr std::array kAsGlibc = {
    Range{0x00AD, 0x00AD, 1},   Range{0x0600, 0x0605, 1},   Range{0x06DD, 0x06DD, 1},
    Range{0x070F, 0x070F, 1},   Range{0x0890, 0x0891, 1},   Range{0x08E2, 0x08E2, 1},
    Range{0x0CBF, 0x0CBF, 0},   Range{0x0CC6, 0x0CC6, 0},   Range{0x3248, 0x324F, 2},
    Range{0x4DC0, 0x4DFF, 2},   Range{0x110BD, 0x110BD, 1}, Range{0x110CD, 0x110CD, 1},
    Range{0x11A07, 0x11A08, 0}, Range{0x11C3F, 0x11C3F, 0},
};

const std::uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

// A text as readers take it: letters with their marks, emojis with their parts (UAX 29).
class Graphemes {
 public:
  explicit Graphemes(std::string_view text) : starts_(text.size()) {
    u8_grapheme_breaks(bytesOf(text), text.size(), starts_.data());
  }
  /// Where the character ends that begins at a place.
  std::size_t endOf(std::size_t start) const {
    const auto next =
        std::find(starts_.begin() + static_cast<std::ptrdiff_t>(start) + 1, starts_.end(), 1);
    return static_cast<std::size_t>(next - starts_.begin());
  }

 private:
  std::vector<char> starts_;  // for each byte, 1 if a character begins with it
};

// How many bytes of a text that needs several lines are the first, blanks at its end included,
// which need no room (UAX 14).
std::size_t firstLine(std::string_view text, int columns) {
  const std::size_t most = std::max(cut(text, columns).size(), Graphemes(text).endOf(0));
  std::vector<char> breaks(text.size());
  u8_possible_linebreaks(bytesOf(text), text.size(), kEncoding, breaks.data());
  std::size_t end = std::min(text.find_first_not_of(' ', most), text.size());
  if (end == text.size()) return end;
  while (end > 0 && breaks[end] != UC_BREAK_POSSIBLE) --end;
  return end == 0 ? most : end;
}

}  // namespace

int columnsOf(char32_t codePoint) {
  if (codePoint < 0xA0) return 1;
  const auto* const range =
      std::find_if(kAsGlibc.begin(), kAsGlibc.end(),
                   [codePoint](const Range& one) { return codePoint <= one.last; });
  if (range != kAsGlibc.end() && codePoint >= range->first) return range->columns;
  const int columns = uc_width(codePoint, kEncoding);
  // What is kept for ideographs to come is wide, but drawn as one replacement character.
  return columns == 2 && uc_is_general_category(codePoint, UC_UNASSIGNED) ? 1 : columns;
}

int columnsOf(std::string_view text) {
  if (isAscii(text)) return static_cast<int>(text.size());
  int columns = 0;
  while (!text.empty()) columns += columnsOf(takeCodePoint(text).value_or(U'\uFFFD'));
  return columns;
}

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const char32_t codePoint = takeCodePoint(text).value_or(U'\uFFFD');
    if (uc_is_property_bidi_control(codePoint)) continue;
    appendCodePoint(result, isControl(codePoint) ? U' ' : codePoint);
  }
  return result;
}

std::string_view cut(std::string_view text, int columns) {
  if (isAscii(text)) return text.substr(0, static_cast<std::size_t>(std::max(0, columns)));
  const Graphemes characters(text);
  std::size_t length = 0;
  while (length < text.size()) {
    const std::size_t end = characters.endOf(length);
    columns -= columnsOf(text.substr(length, end - length));
    if (columns < 0) break;
    length = end;
  }
  return text.substr(0, length);
}

std::string fitted(std::string_view text, int columns) {
  if (columnsOf(text) <= columns) return std::string(text);
  return std::string(cut(text, columns - 1)) + "…";
}

std::vector<std::string> wrapped(std::string_view text, int columns) {
  std::vector<std::string> lines;
  while (columnsOf(text) > columns) {
    const std::size_t end = firstLine(text, columns);
    const std::string_view line = text.substr(0, end);
    lines.emplace_back(line.substr(0, line.find_last_not_of(' ') + 1));
    text.remove_prefix(std::min(text.find_first_not_of(' ', end), text.size()));
  }
  if (!text.empty() || lines.empty()) lines.emplace_back(text);
  return lines;
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace wayfell
