#include "hosts/terminal/PanelComposer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "hosts/terminal/CellRows.h"
#include "hosts/terminal/CompassRows.h"
#include "hosts/terminal/PositionRows.h"
#include "hosts/text/TextWidth.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr int kLeft = 2;         // where the content begins
constexpr int kLargePanel = 60;  // columns

// Sections in the order in which they are given up, last first.
enum class Rank { position, motion, compass, waypoint, controls, frame, track, address };

struct Section {
  Rank rank;
  std::vector<TextRow> rows;
};

std::string between(std::string_view before, std::string_view text, std::string_view after) {
  return std::string(before).append(text).append(after);
}

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
    edge("╭", {{0, "Wayfell", TextStyle::caption}}, printable(caption), "╮");
    if (!panel_.compact) compass();
    begin(Rank::position);
    content(positionRows(panel_, inner_));
    begin(Rank::motion);
    if (large_) content({{}});
    cells(PanelRow::altitude, PanelRow::speed);
    waypoint();
    track();
    address();
    controls();
    begin(Rank::frame);
    edge("╰", {}, "", "╯");
    return std::move(sections_);
  }

 private:
  std::string value(PanelRow row) const { return printable(panel_[row].value); }

  void begin(Rank rank) { sections_.push_back({rank, {}}); }
  void add(TextRow row) { sections_.back().rows.push_back(std::move(row)); }

  // Rows between the frame's two sides.
  void content(std::vector<TextRow> rows) {
    for (TextRow& row : rows) {
      for (TextSpan& span : row) span.column += kLeft;
      row.insert(row.begin(), {0, "│", TextStyle::frame});
      row.push_back({columns_ - 1, "│", TextStyle::frame});
      add(std::move(row));
    }
  }

  // A line across: after its left end a title, before its right end words.
  void edge(std::string_view left, const TextRow& title, const std::string& words,
            std::string_view right) {
    TextRow row;
    append(row, std::string(left) + "─", TextStyle::frame);
    for (const TextSpan& span : title) append(row, " " + span.text, span.style);
    if (!title.empty()) append(row, " ", TextStyle::frame);
    const std::string spaced = words.empty() ? "" : between(" ", words, " ");
    const int line = columns_ - endOf(row) - columnsOf(spaced) - 2;
    append(row, repeated("─", line), TextStyle::frame);
    append(row, spaced, TextStyle::caption);
    append(row, "─" + std::string(right), TextStyle::frame);
    add(std::move(row));
  }
  void rule(const TextRow& title) { edge("├", title, "", "┤"); }

  // One of the section's own, and a sign.
  void rule(std::string_view title, const std::string& sign, TextStyle style) {
    const int room = inner_ - (sign.empty() ? 2 : columnsOf(sign) + 3);
    TextRow row = {{0, fitted(printable(title), room), TextStyle::caption}};
    append(row, sign, style);
    rule(row);
  }

  void compass() {
    begin(Rank::compass);
    content(compassRows(panel_, inner_, large_));
  }

  PanelCell cell(PanelRow row) const {
    return {printable(panel_[row].caption), value(row),
            panel_[row].dim ? TextStyle::stale : TextStyle::value};
  }

  void cells(PanelRow left, PanelRow right, const std::optional<CellPicture>& picture = {}) {
    if (large_) {
      if (auto rows = largeCellRows(cell(left), cell(right), picture, inner_)) {
        content(std::move(*rows));
        return;
      }
    }
    content(cellRows(cell(left), cell(right), inner_));
  }

  // The arrow in the title tells in every size what the distance and the time are to.
  void waypoint() {
    if (!panel_[PanelRow::waypointDistance].shown) return;
    begin(Rank::waypoint);
    const auto eighths = panel_.waypoint ? eighthsOf(*panel_.waypoint) : std::nullopt;
    const TextStyle style = panel_.waypointDim || !eighths ? TextStyle::stale : TextStyle::arrow;
    rule(localized("Waypoint"), smallArrow(eighths), style);
    std::optional<CellPicture> picture;
    if (eighths) picture = {largeArrow(*eighths), style};
    cells(PanelRow::waypointDistance, PanelRow::eta, picture);
  }

  // With a question mark where it is old or not known yet.
  std::string smallArrow(std::optional<std::size_t> eighths) const {
    using Arrows = std::array<std::string_view, 8>;
    static constexpr Arrows kArrows = {"↑", "↗", "→", "↘", "↓", "↙", "←", "↖"};
    static constexpr Arrows kAsciiArrows = {"^", "^>", ">", "v>", "v", "<v", "<", "<^"};
    if (!eighths) return "?";
    const std::string arrow((unicode_ ? kArrows : kAsciiArrows)[*eighths]);
    return panel_.waypointDim ? arrow + "?" : arrow;
  }

  // Not large: it tells of the past.
  void track() {
    begin(Rank::track);
    rule(localized("Track"), "", TextStyle::caption);
    content(cellRows(cell(PanelRow::trackTime), cell(PanelRow::trackDistance), inner_));
  }

  void address() {
    if (!panel_[PanelRow::address].shown) return;
    begin(Rank::address);
    rule({});
    content({{{0, fitted(value(PanelRow::address), inner_), TextStyle::value}}});
  }

  // The formats, the one in use marked, and at the right end, below them where there is no room,
  // the buttons.
  void controls() {
    begin(Rank::controls);
    if (panel_.compact) rule({});
    TextRow row = formats();
    TextRow buttons;
    append(buttons, between("[", fitted(value(PanelRow::open), inner_ - 4), "]"), TextStyle::button,
           PanelRequest{PanelAction::openApp});
    append(buttons, " ", TextStyle::button);
    append(buttons, panel_.compact ? "▸" : "▾", TextStyle::button,
           PanelRequest{PanelAction::switchLayout});
    const int first = inner_ - endOf(buttons);
    for (TextSpan& button : buttons) button.column += first;
    if (endOf(row) >= first) content({std::exchange(row, {})});
    std::move(buttons.begin(), buttons.end(), std::back_inserter(row));
    content({std::move(row)});
  }

  TextRow formats() const {
    const int count = static_cast<int>(panel_.formats.size());
    TextRow row;
    int columns = 2 * count;
    for (const std::string& format : panel_.formats) columns += columnsOf(printable(format));
    for (int i = 0; i < count; ++i) {
      const bool chosen = panel_.format == i;
      std::string title = printable(panel_.formats[static_cast<std::size_t>(i)]);
      if (columns > inner_) title = fitted(title, inner_ / count - 2);
      append(row, chosen ? between("‹", title, "›") : between(" ", title, " "),
             chosen ? TextStyle::chosenFormat : TextStyle::format,
             PanelRequest{PanelAction::pickFormat, i});
    }
    return row;
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
