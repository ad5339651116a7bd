#include "hosts/text/TextWidth.h"

#include <unictype.h>
#include <unigbrk.h>
#include <unilbrk.h>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cwchar>

#include "hosts/text/Characters.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

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
  u8_possible_linebreaks(bytesOf(text), text.size(), "UTF-8", breaks.data());
  std::size_t end = std::min(text.find_first_not_of(' ', most), text.size());
  if (end == text.size()) return end;
  while (end > 0 && breaks[end] != UC_BREAK_POSSIBLE) --end;
  return end == 0 ? most : end;
}

}  // namespace

int columnsOf(char32_t codePoint) {
  if (codePoint < 0xA0) return 1;
  // ncurses counts by the C library, which has this locale on every system.
  static const locale_t kUtf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  const locale_t before = uselocale(kUtf8);
  const int columns = wcwidth(static_cast<wchar_t>(codePoint));
  uselocale(before);
  return columns < 0 ? 1 : columns;  // what is unknown is drawn as one replacement character
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
