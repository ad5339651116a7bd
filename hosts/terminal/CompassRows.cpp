#include "hosts/terminal/CompassRows.h"

#include "hosts/terminal/LargeText.h"
#include "hosts/terminal/TapeColumns.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

// What is kept beside the tape for the greatest heading, "6400 mils", and a gap.
constexpr int kHeadingColumns = 11;
constexpr int kLargeHeadingColumns = 23;
constexpr int kGap = 2;

TextStyle styleOf(std::string_view glyph, bool marked, bool dim) {
  if (glyph == ".") return marked && !dim ? TextStyle::mark : TextStyle::dots;
  if (dim) return TextStyle::stale;
  return marked ? TextStyle::mark : TextStyle::value;
}

// So many columns to either side of what is under the mark.
TextRow windowOn(const PanelReading& panel, int half) {
  const TapeColumns tape(readTape(printable(panel.tape)));
  const std::ptrdiff_t marked = tape.marked(panel.tapeOffset);
  TextRow window;
  for (std::ptrdiff_t i = marked - half; i <= marked + half; ++i) {
    const std::string glyph(tape.glyph(i));
    const TextStyle style = styleOf(glyph, i == marked, panel.northDim);
    if (!window.empty() && window.back().style == style) {
      window.back().text += glyph;
    } else {
      append(window, glyph, style);
    }
  }
  return window;
}

}  // namespace

std::vector<TextRow> compassRows(const PanelReading& panel, int columns, bool large) {
  const PanelReading::Row& row = panel[PanelRow::heading];
  const std::string heading = printable(row.value);
  const TextStyle style = row.dim ? TextStyle::stale : TextStyle::value;
  const int kept = large ? kLargeHeadingColumns : kHeadingColumns;
  const int half = (columns - kept - 1) / 2;

  std::vector<TextRow> rows(large ? kLargeRows : 2);
  if (panel.markShown) {
    rows[0].push_back(panel.northDim ? TextSpan{half, "▽", TextStyle::stale}
                                     : TextSpan{half, "▼", TextStyle::mark});
  }
  rows[1] = windowOn(panel, half);
  if (const LargeText text = largeText(heading); large && text.columns <= kept - kGap) {
    for (std::size_t i = 0; i < kLargeRows; ++i) {
      appendBefore(rows[i], columns, text.rows[i], style);
    }
  } else if (columnsOf(heading) < kept) {
    appendBefore(rows[1], columns, heading, style);
  } else {  // a number that is no direction
    for (const std::string& line : wrapped(heading, columns)) rows.push_back({{0, line, style}});
  }
  return rows;
}

}  // namespace wayfell
