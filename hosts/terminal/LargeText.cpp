#include "hosts/terminal/LargeText.h"

#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using Rows = std::array<std::string_view, kLargeRows>;

constexpr std::array<Rows, 10> kDigits = {{
    {"▄▄▄", "█ █", "█▄█"},
    {"▄▄ ", " █ ", "▄█▄"},
    {"▄▄▄", "▄▄█", "█▄▄"},
    {"▄▄▄", "▄▄█", "▄▄█"},
    {"▄ ▄", "█▄█", "  █"},
    {"▄▄▄", "█▄▄", "▄▄█"},
    {"▄▄▄", "█▄▄", "█▄█"},
    {"▄▄▄", "  █", "  █"},
    {"▄▄▄", "█▄█", "█▄█"},
    {"▄▄▄", "█▄█", "▄▄█"},
}};
constexpr Rows kColon = {" ", "▀", "▀"};
constexpr Rows kPoint = {" ", " ", "▄"};
constexpr Rows kMinus = {"  ", "▄▄", "  "};

const Rows* large(char32_t codePoint) {
  if (codePoint >= U'0' && codePoint <= U'9') return &kDigits[codePoint - U'0'];
  if (codePoint == U':') return &kColon;
  if (codePoint == U'.') return &kPoint;
  if (codePoint == U'-') return &kMinus;
  return nullptr;
}

void append(LargeText& text, const Rows& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) text.rows[i] += rows[i];
  text.columns += columnsOf(rows[0]);
}

}  // namespace

LargeText largeText(std::string_view text) {
  LargeText result;
  bool wasLarge = false;
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t codePoint = takeCodePoint(text).value_or(U'?');
    if (const Rows* rows = large(codePoint)) {
      if (wasLarge) append(result, {" ", " ", " "});
      append(result, *rows);
      wasLarge = true;
      continue;
    }
    const std::string_view glyph = before.substr(0, before.size() - text.size());
    const std::string blank = repeated(" ", columnsOf(codePoint));
    const bool raised = codePoint == U'°';
    append(result, raised ? Rows{glyph, blank, blank} : Rows{blank, blank, glyph});
    wasLarge = false;
  }
  return result;
}

const LargeText& largeArrow(std::size_t eighth) {
  static const std::array<LargeText, 8> kArrows = {{
      {{"  ▄  ", "▄▀█▀▄", "  █  "}, 5},
      {{"  ▄▄▄", "  ▄▀█", "▄▀   "}, 5},
      {{"  ▄  ", "▄▄▄█▄", "  ▄▀ "}, 5},
      {{"▄    ", " ▀▄ ▄", "  ▄██"}, 5},
      {{"  ▄  ", "▄ █ ▄", " ▀█▀ "}, 5},
      {{"    ▄", "▄ ▄▀ ", "██▄  "}, 5},
      {{"  ▄  ", "▄█▄▄▄", " ▀▄  "}, 5},
      {{"▄▄▄  ", "█▀▄  ", "   ▀▄"}, 5},
  }};
  return kArrows.at(eighth % kArrows.size());
}

}  // namespace wayfell
