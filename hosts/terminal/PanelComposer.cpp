#include "hosts/terminal/PanelComposer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "hosts/terminal/LargeText.h"
#include "hosts/terminal/TapeColumns.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr int kCaptionColumns = 11;  // "Longitude" and a gap
constexpr int kLeft = 2;             // where the content begins
constexpr int kCellGap = 2;
constexpr int kLargePanel = 60;  // columns
// What is kept beside the tape for the greatest heading, "6400 mils".
constexpr int kHeadingColumns = 11;
constexpr int kLargeHeadingColumns = 23;
constexpr int kFormatColumns = 4;  // "MGRS"

// Sections in the order in which they are given up, last first.
enum class Rank { position, motion, compass, waypoint, controls, frame, track, address };

struct Section {
  Rank rank;
  std::vector<TextRow> rows;
};

// Without the blanks that they begin with.
std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = printable(text.substr(0, end));
    lines.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string between(std::string_view before, std::string_view text, std::string_view after) {
  return std::string(before).append(text).append(after);
}

std::string spaced(std::string_view title) { return title.empty() ? "" : between(" ", title, " "); }

// Eighths of a turn to a direction, in degrees clockwise from up; none for what is no direction.
std::optional<std::size_t> eighthsOf(double direction) {
  const double turns = direction / 360;
  const double eighths = std::round((turns - std::floor(turns)) * 8);
  if (!std::isfinite(eighths)) return std::nullopt;
  return static_cast<std::size_t>(eighths) % 8;
}

class Composer {
 public:
  Composer(const PanelReading& panel, int columns, bool unicode, bool large)
      : panel_(panel),
        columns_(columns),
        inner_(columns - 2 * kLeft),
        unicode_(unicode),
        large_(large) {}

  std::vector<Section> compose(std::string_view caption) {
    begin(Rank::frame);
    edge("╭", "Wayfell", "", spaced(printable(caption)), "╮");
    if (!panel_.compact) compass();
    position();
    begin(Rank::motion);
    if (large_) content({});
    cells(PanelRow::altitude, PanelRow::speed);
    waypoint();
    track();
    address();
    controls();
    begin(Rank::frame);
    edge("╰", "", "", "", "╯");
    return std::move(sections_);
  }

 private:
  // A text that is to stand in some columns.
  struct Cell {
    std::string caption;
    std::string value;
    int columns() const { return columnsOf(caption) + 1 + columnsOf(value); }
  };

  std::string value(PanelRow row) const { return printable(panel_[row].value); }

  void begin(Rank rank) { sections_.push_back({rank, {}}); }
  void add(TextRow row) { sections_.back().rows.push_back(std::move(row)); }

  // A row between the frame's two sides.
  void content(TextRow row) {
    row.insert(row.begin(), {0, "│", TextStyle::frame});
    row.push_back({columns_ - 1, "│", TextStyle::frame});
    add(std::move(row));
  }

  // A line across: after its left end a title and an arrow, before its right end words.
  void edge(std::string_view left, std::string_view title, const std::string& arrow,
            const std::string& words, std::string_view right) {
    TextRow row = {{0, std::string(left) + "─", TextStyle::frame}};
    append(row, spaced(title), TextStyle::caption);
    if (!arrow.empty()) append(row, arrow + " ", TextStyle::arrow);
    const int line = columns_ - end(row) - columnsOf(words) - 2;
    append(row, repeated("─", line), TextStyle::frame);
    append(row, words, TextStyle::caption);
    append(row, "─" + std::string(right), TextStyle::frame);
    add(std::move(row));
  }
  void rule(std::string_view title, const std::string& arrow = "") {
    edge("├", title, arrow, "", "┤");
  }

  static int end(const TextRow& row) {
    return row.empty() ? 0 : row.back().column + columnsOf(row.back().text);
  }
  static void append(TextRow& row, std::string text, TextStyle style,
                     std::optional<PanelRequest> request = {}) {
    if (!text.empty()) row.push_back({end(row), std::move(text), style, request});
  }
  void appendRight(TextRow& row, std::string text, TextStyle style) const {
    row.push_back({kLeft + inner_ - columnsOf(text), std::move(text), style});
  }

  void compass() {
    begin(Rank::compass);
    const TapeColumns tape(readTape(printable(panel_.tape)));
    const std::ptrdiff_t marked = tape.marked(panel_.tapeOffset);
    const int half = (inner_ - (large_ ? kLargeHeadingColumns : kHeadingColumns) - 1) / 2;

    TextRow mark;
    if (panel_.markShown) mark.push_back({kLeft + half, "▼", TextStyle::mark});
    TextRow window;
    for (std::ptrdiff_t i = marked - half; i <= marked + half; ++i) {
      const std::string glyph(tape.glyph(i));
      const TextStyle style = i == marked    ? TextStyle::mark
                              : glyph == "." ? TextStyle::dots
                                             : TextStyle::value;
      if (!window.empty() && window.back().style == style) {
        window.back().text += glyph;
      } else {
        window.push_back({kLeft + half + static_cast<int>(i - marked), glyph, style});
      }
    }

    if (large_) {
      const LargeText heading =
          largeOrPlain(value(PanelRow::heading), kLargeHeadingColumns - kCellGap);
      std::array<TextRow, kLargeRows> rows = {std::move(mark), std::move(window), TextRow{}};
      for (std::size_t i = 0; i < rows.size(); ++i) {
        appendRight(rows[i], heading.rows[i], TextStyle::value);
        content(std::move(rows[i]));
      }
      return;
    }
    content(std::move(mark));
    appendRight(window, fitted(value(PanelRow::heading), kHeadingColumns - 1), TextStyle::value);
    content(std::move(window));
  }

  void position() {
    begin(Rank::position);
    if (!panel_[PanelRow::position].shown) return;
    std::vector<std::string> captions = linesOf(panel_[PanelRow::position].caption);
    std::vector<std::string> values = linesOf(panel_[PanelRow::position].value);
    const std::vector<std::string> zone = linesOf(panel_[PanelRow::zone].value);
    values.insert(values.end(), zone.begin(), zone.end());
    captions.resize(std::max({std::size_t{1}, captions.size(), values.size()}));
    values.resize(captions.size());
    for (std::size_t i = 0; i < captions.size(); ++i) {
      const std::string caption = fitted(captions[i], inner_ / 3);
      const int column = std::max(kCaptionColumns, columnsOf(caption) + 1);
      content({{kLeft, caption, TextStyle::caption},
               {kLeft + column, fitted(values[i], inner_ - column), TextStyle::value}});
    }
  }

  Cell cell(PanelRow row) const {
    return {fitted(printable(panel_[row].caption), inner_ / 4), value(row)};
  }

  // Two captions with their values, side by side; room is kept free at the right end.
  void cells(PanelRow leftRow, PanelRow rightRow, const LargeText* atRight = nullptr) {
    const Cell left = cell(leftRow);
    const Cell right = cell(rightRow);
    const int half = (inner_ - kCellGap) / 2;
    if (large_) {
      largeCells(left, right, half, atRight);
      return;
    }
    // Either may take what the other does not need.
    const int width =
        std::clamp(right.columns(), half, std::max(half, inner_ - 1 - left.columns()));
    TextRow row;
    addCell(row, left, kLeft, std::min(std::max(half, left.columns()), inner_ - 1 - width));
    addCell(row, right, kLeft + inner_ - width, width);
    content(std::move(row));
  }

  static void addCell(TextRow& row, const Cell& cell, int column, int columns) {
    const std::string value = fitted(cell.value, columns - columnsOf(cell.caption) - 1);
    row.push_back({column, cell.caption, TextStyle::caption});
    row.push_back({column + columns - columnsOf(value), value, TextStyle::value});
  }

  void largeCells(const Cell& left, const Cell& right, int half, const LargeText* atRight) {
    const int second = kLeft + half + kCellGap;
    content(
        {{kLeft, left.caption, TextStyle::caption}, {second, right.caption, TextStyle::caption}});
    const LargeText first = largeOrPlain(left.value, half);
    const LargeText last =
        largeOrPlain(right.value, inner_ - second + kLeft - (atRight ? atRight->columns + 1 : 0));
    for (std::size_t i = 0; i < kLargeRows; ++i) {
      TextRow row = {{kLeft, first.rows[i], TextStyle::value},
                     {second, last.rows[i], TextStyle::value}};
      if (atRight) appendRight(row, atRight->rows[i], TextStyle::arrow);
      content(std::move(row));
    }
  }

  static LargeText largeOrPlain(const std::string& value, int columns) {
    LargeText text = largeText(value);
    if (text.columns <= columns) return text;
    return {{"", "", fitted(value, columns)}, columns};
  }

  void waypoint() {
    if (!panel_[PanelRow::waypointDistance].shown) return;
    begin(Rank::waypoint);
    const auto eighths = panel_.waypoint ? eighthsOf(*panel_.waypoint) : std::nullopt;
    if (large_) {
      rule("Waypoint");
      cells(PanelRow::waypointDistance, PanelRow::eta, eighths ? &largeArrow(*eighths) : nullptr);
    } else {
      rule("Waypoint", panel_.waypoint ? smallArrow(eighths) : "");
      cells(PanelRow::waypointDistance, PanelRow::eta);
    }
  }

  std::string smallArrow(std::optional<std::size_t> eighths) const {
    using Arrows = std::array<std::string_view, 8>;
    static constexpr Arrows kArrows = {"↑", "↗", "→", "↘", "↓", "↙", "←", "↖"};
    static constexpr Arrows kAsciiArrows = {"^", "^>", ">", "v>", "v", "<v", "<", "<^"};
    return std::string(!eighths ? "?" : (unicode_ ? kArrows : kAsciiArrows)[*eighths]);
  }

  // Not large: it tells of the past.
  void track() {
    begin(Rank::track);
    rule("Track");
    const bool large = std::exchange(large_, false);
    cells(PanelRow::trackTime, PanelRow::trackDistance);
    large_ = large;
  }

  void address() {
    if (!panel_[PanelRow::address].shown) return;
    begin(Rank::address);
    rule("");
    content({{kLeft, fitted(value(PanelRow::address), inner_), TextStyle::value}});
  }

  // The formats, the one in use marked, and the buttons.
  void controls() {
    begin(Rank::controls);
    if (panel_.compact) rule("");
    TextRow row = {{kLeft, "", TextStyle::format}};
    for (int i = 0; i < std::ssize(panel_.formats); ++i) {
      const bool chosen = panel_.format == i;
      const std::string title =
          fitted(printable(panel_.formats[static_cast<std::size_t>(i)]), kFormatColumns);
      append(row, chosen ? between("‹", title, "›") : between(" ", title, " "),
             chosen ? TextStyle::chosenFormat : TextStyle::format,
             PanelRequest{PanelAction::pickFormat, i});
    }
    const int room = inner_ - (end(row) - kLeft) - 1 - columnsOf("[] ▾");
    const std::string button = between("[", fitted(value(PanelRow::open), room), "]");
    row.push_back({kLeft + inner_ - 2 - columnsOf(button), button, TextStyle::button,
                   PanelRequest{PanelAction::openApp}});
    append(row, " ", TextStyle::button);
    append(row, panel_.compact ? "▸" : "▾", TextStyle::button,
           PanelRequest{PanelAction::switchLayout});
    content(std::move(row));
  }

  const PanelReading& panel_;
  int columns_;
  int inner_;  // columns between the frame's sides and a blank at each
  bool unicode_;
  bool large_;
  std::vector<Section> sections_;
};

int rowsOf(const std::vector<Section>& sections) {
  int rows = 0;
  for (const Section& section : sections) rows += static_cast<int>(section.rows.size());
  return rows;
}

}  // namespace

ComposedPanel composePanel(const PanelReading& reading, const PanelRoom& room,
                           std::string_view caption) {
  const int columns = std::clamp(room.columns, kNarrowestPanel, kWidestPanel);
  const bool large = room.rows && room.unicode && columns >= kLargePanel && !reading.compact;
  auto sections = Composer(reading, columns, room.unicode, large).compose(caption);
  if (large && rowsOf(sections) > *room.rows) {
    sections = Composer(reading, columns, room.unicode, false).compose(caption);
  }

  ComposedPanel panel;
  panel.columns = columns;
  const int all = rowsOf(sections);
  const int most = room.rows.value_or(all);
  for (int rank = static_cast<int>(Rank::address); rank > 0 && rowsOf(sections) > most; --rank) {
    std::erase_if(sections, [rank](const Section& one) { return one.rank == Rank{rank}; });
  }
  for (Section& section : sections) {
    std::move(section.rows.begin(), section.rows.end(), std::back_inserter(panel.rows));
  }
  if (std::ssize(panel.rows) > most) panel.rows.resize(static_cast<std::size_t>(std::max(0, most)));
  panel.missingRows = all - static_cast<int>(panel.rows.size());
  return panel;
}

}  // namespace wayfell
