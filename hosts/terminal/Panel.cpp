#include "hosts/terminal/Panel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "hosts/terminal/LargeText.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

constexpr double kPointsPerTurn = -300;  // by which the tape moves
constexpr int kLabelsPerTurn = 8;        // on the tape: N, 45, E ...
constexpr int kCaptionColumns = 11;      // "Longitude" and a gap
constexpr int kLeft = 2;                 // where the content begins
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
  std::vector<PanelRow> rows;
};

bool shown(const WidgetInterface& interface, std::string_view name) {
  return !interface.view(name).hidden();
}

bool isCompact(const WidgetInterface& interface) {
  return shown(interface, "miniTrackDataView") && !shown(interface, "trackDataView");
}

std::vector<std::string> linesOf(std::string_view text, std::string_view separator) {
  std::vector<std::string> lines;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = text.find(separator);
    std::string line = printable(text.substr(0, end));
    lines.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
    if (end != std::string_view::npos) text.remove_prefix(end + separator.size());
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

// The tape's text, one column a character.
class Tape {
 public:
  explicit Tape(const UILabel& label) {
    const std::string text = printable(label.text().value_or(""));
    for (std::string_view rest = text; !rest.empty();) {
      glyphs_.emplace_back();
      appendCodePoint(glyphs_.back(), takeCodePoint(rest).value_or(U' '));
    }
    for (std::size_t i = 0; i < glyphs_.size(); ++i) {
      if (isDot(i)) continue;
      const std::size_t first = i;
      while (i + 1 < glyphs_.size() && !isDot(i + 1)) ++i;
      labels_.push_back(static_cast<double>(first + i) / 2);
    }
  }

  // The glyph under the mark. In the interface's font 300 points span one turn; here the labels
  // are not evenly spaced, so the place is taken between the two nearest. The second label is due
  // north.
  std::ptrdiff_t marked(double offset) const {
    if (labels_.size() < 2) return 0;
    const double label = 1 + (std::isfinite(offset) ? offset : 0) / kPointsPerTurn * kLabelsPerTurn;
    const auto last = static_cast<double>(labels_.size() - 1);
    const double before = std::clamp(std::floor(label), 0.0, last - 1);
    const auto i = static_cast<std::size_t>(before);
    const double place = labels_[i] + (label - before) * (labels_[i + 1] - labels_[i]);
    return std::lround(std::clamp(place, labels_.front(), labels_.back()));
  }

  // A wide window sees farther to the left of north than the text goes: there it is taken from one
  // turn later. Blank beyond that.
  std::string_view glyph(std::ptrdiff_t index) const {
    if (index < 0 && labels_.size() > 1 + kLabelsPerTurn) {
      index += std::lround(labels_[1 + kLabelsPerTurn] - labels_[1]);
    }
    return index >= 0 && index < std::ssize(glyphs_) ? glyphs_[static_cast<std::size_t>(index)]
                                                     : std::string_view(" ");
  }

 private:
  bool isDot(std::size_t index) const { return glyphs_[index] == "."; }

  std::vector<std::string> glyphs_;
  std::vector<double> labels_;  // their middles
};

class Composer {
 public:
  Composer(const WidgetInterface& interface, int columns, bool unicode, bool large)
      : interface_(interface),
        columns_(columns),
        inner_(columns - 2 * kLeft),
        unicode_(unicode),
        large_(large) {}

  std::vector<Section> compose(std::string_view caption) {
    const bool compact = isCompact(interface_);
    begin(Rank::frame);
    top(printable(caption));
    if (!compact) compass();
    position();
    begin(Rank::motion);
    if (large_) content({});
    cells("altitude", "speed");
    if (!compact && shown("waypointDataView")) waypoint();
    track();
    if (!compact) address();
    controls(compact);
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

  bool shown(std::string_view name) const { return wayfell::shown(interface_, name); }
  std::string rawLabel(std::string_view name) const {
    return interface_.label(name).text().value_or("");
  }
  std::string label(std::string_view name) const { return printable(rawLabel(name)); }

  void begin(Rank rank) { sections_.push_back({rank, {}}); }
  void add(PanelRow row) { sections_.back().rows.push_back(std::move(row)); }

  // A row between the frame's two sides.
  void content(PanelRow row) {
    row.insert(row.begin(), {0, "│", PanelStyle::frame, {}});
    row.push_back({columns_ - 1, "│", PanelStyle::frame, {}});
    add(std::move(row));
  }

  // A line across: after its left end a title and an arrow, before its right end words.
  void edge(std::string_view left, std::string_view title, const std::string& arrow,
            const std::string& words, std::string_view right) {
    PanelRow row = {{0, std::string(left) + "─", PanelStyle::frame, {}}};
    append(row, spaced(title), PanelStyle::caption);
    if (!arrow.empty()) append(row, arrow + " ", PanelStyle::arrow);
    const int line = columns_ - end(row) - columnsOf(words) - 2;
    append(row, repeated("─", line), PanelStyle::frame);
    append(row, words, PanelStyle::caption);
    append(row, "─" + std::string(right), PanelStyle::frame);
    add(std::move(row));
  }
  void top(const std::string& caption) { edge("╭", "Wayfell", "", spaced(caption), "╮"); }
  void rule(std::string_view title, const std::string& arrow = "") {
    edge("├", title, arrow, "", "┤");
  }

  static int end(const PanelRow& row) {
    return row.empty() ? 0 : row.back().column + columnsOf(row.back().text);
  }
  static void append(PanelRow& row, std::string text, PanelStyle style,
                     std::optional<Touch> touch = {}) {
    if (!text.empty()) row.push_back({end(row), std::move(text), style, touch});
  }
  void appendRight(PanelRow& row, std::string text, PanelStyle style) const {
    row.push_back({kLeft + inner_ - columnsOf(text), std::move(text), style, {}});
  }

  void compass() {
    begin(Rank::compass);
    const Tape tape(interface_.label("compassLabel"));
    const std::ptrdiff_t marked = tape.marked(interface_.leftConstraint().constant().value_or(0));
    const int half = (inner_ - (large_ ? kLargeHeadingColumns : kHeadingColumns) - 1) / 2;

    PanelRow mark;
    if (shown("compassArrowImageView")) mark.push_back({kLeft + half, "▼", PanelStyle::mark, {}});
    PanelRow window;
    for (std::ptrdiff_t i = marked - half; i <= marked + half; ++i) {
      const std::string glyph(tape.glyph(i));
      const PanelStyle style = i == marked    ? PanelStyle::mark
                               : glyph == "." ? PanelStyle::dots
                                              : PanelStyle::value;
      if (!window.empty() && window.back().style == style) {
        window.back().text += glyph;
      } else {
        window.push_back({kLeft + half + static_cast<int>(i - marked), glyph, style, {}});
      }
    }

    if (large_) {
      const LargeText heading =
          largeOrPlain(label("headingLabel"), kLargeHeadingColumns - kCellGap);
      std::array<PanelRow, kLargeRows> rows = {std::move(mark), std::move(window), PanelRow{}};
      for (std::size_t i = 0; i < rows.size(); ++i) {
        appendRight(rows[i], heading.rows[i], PanelStyle::value);
        content(std::move(rows[i]));
      }
      return;
    }
    content(std::move(mark));
    appendRight(window, fitted(label("headingLabel"), kHeadingColumns - 1), PanelStyle::value);
    content(std::move(window));
  }

  void position() {
    begin(Rank::position);
    if (!shown("dataView")) return;
    std::vector<std::string> captions;
    if (shown("latLongLabel")) captions = linesOf(rawLabel("latLongLabel"), "\n");
    std::vector<std::string> values = linesOf(rawLabel("userCoordinateLabel"), "\n");
    // Latitude and longitude come as one text; a line for each if the caption has one for each.
    if (values.size() == 1 && captions.size() > 1) values = linesOf(values.front(), ", ");
    if (!rawLabel("utmZoneLabel").empty()) {
      const auto zone = linesOf(rawLabel("utmZoneLabel"), "\n");
      values.insert(values.end(), zone.begin(), zone.end());
    }
    captions.resize(std::max(captions.size(), values.size()));
    values.resize(captions.size());
    for (std::size_t i = 0; i < captions.size(); ++i) {
      const std::string caption = fitted(captions[i], inner_ / 3);
      const int column = std::max(kCaptionColumns, columnsOf(caption) + 1);
      content({{kLeft, caption, PanelStyle::caption, {}},
               {kLeft + column, fitted(values[i], inner_ - column), PanelStyle::value, {}}});
    }
  }

  Cell cell(const std::string& name) const {
    return {fitted(label(name + "NameLabel"), inner_ / 4), label(name + "Label")};
  }

  // Two captions with their values, side by side; room is kept free at the right end.
  void cells(const std::string& leftName, const std::string& rightName,
             const LargeText* atRight = nullptr) {
    const Cell left = cell(leftName);
    const Cell right = cell(rightName);
    const int half = (inner_ - kCellGap) / 2;
    if (large_) {
      largeCells(left, right, half, atRight);
      return;
    }
    // Either may take what the other does not need.
    const int width =
        std::clamp(right.columns(), half, std::max(half, inner_ - 1 - left.columns()));
    PanelRow row;
    addCell(row, left, kLeft, std::min(std::max(half, left.columns()), inner_ - 1 - width));
    addCell(row, right, kLeft + inner_ - width, width);
    content(std::move(row));
  }

  static void addCell(PanelRow& row, const Cell& cell, int column, int columns) {
    const std::string value = fitted(cell.value, columns - columnsOf(cell.caption) - 1);
    row.push_back({column, cell.caption, PanelStyle::caption, {}});
    row.push_back({column + columns - columnsOf(value), value, PanelStyle::value, {}});
  }

  void largeCells(const Cell& left, const Cell& right, int half, const LargeText* atRight) {
    const int second = kLeft + half + kCellGap;
    content({{kLeft, left.caption, PanelStyle::caption, {}},
             {second, right.caption, PanelStyle::caption, {}}});
    const LargeText first = largeOrPlain(left.value, half);
    const LargeText last =
        largeOrPlain(right.value, inner_ - second + kLeft - (atRight ? atRight->columns + 1 : 0));
    for (std::size_t i = 0; i < kLargeRows; ++i) {
      PanelRow row = {{kLeft, first.rows[i], PanelStyle::value, {}},
                      {second, last.rows[i], PanelStyle::value, {}}};
      if (atRight) appendRight(row, atRight->rows[i], PanelStyle::arrow);
      content(std::move(row));
    }
  }

  static LargeText largeOrPlain(const std::string& value, int columns) {
    LargeText text = largeText(value);
    if (text.columns <= columns) return text;
    return {{"", "", fitted(value, columns)}, columns};
  }

  void waypoint() {
    begin(Rank::waypoint);
    const auto& arrow = interface_.compassRotatingView().arrow();
    const bool pointing = arrow && shown("compassRotatingView") && shown("compassArrowView");
    const auto eighths = pointing ? eighthsOf(arrow->bearing - arrow->heading) : std::nullopt;
    if (large_) {
      rule("Waypoint");
      cells("waypointDistance", "eta", eighths ? &largeArrow(*eighths) : nullptr);
    } else {
      rule("Waypoint", pointing ? smallArrow(eighths) : "");
      cells("waypointDistance", "eta");
    }
  }

  std::string smallArrow(std::optional<std::size_t> eighths) const {
    using Arrows = std::array<std::string_view, 8>;
    static constexpr Arrows kArrows = {"↑", "↗", "→", "↘", "↓", "↙", "←", "↖"};
    static constexpr Arrows kAsciiArrows = {"^", "^>", ">", "v>", "v", "<v", "<", "<^"};
    return std::string(!eighths ? "?" : (unicode_ ? kArrows : kAsciiArrows)[*eighths]);
  }

  void track() {
    begin(Rank::track);
    if (shown("trackDataView")) trackCells("time", "distance");
    if (shown("miniTrackDataView")) trackCells("miniTime", "miniDistance");
  }
  // Not large: it tells of the past.
  void trackCells(const std::string& time, const std::string& distance) {
    rule("Track");
    const bool large = std::exchange(large_, false);
    cells(time, distance);
    large_ = large;
  }

  void address() {
    begin(Rank::address);
    rule("");
    content({{kLeft, fitted(label("addressLabel"), inner_), PanelStyle::value, {}}});
  }

  // The formats, the one in use marked, and the buttons.
  void controls(bool compact) {
    begin(Rank::controls);
    if (compact) rule("");
    const UISegmentedControl& control = interface_.coordinateControl();
    PanelRow row = {{kLeft, "", PanelStyle::format, {}}};
    for (std::size_t i = 0; i < control.numberOfSegments(); ++i) {
      const int segment = static_cast<int>(i);
      const bool chosen = control.selectedSegmentIndex() == segment;
      const std::string title =
          fitted(printable(control.titleForSegmentAtIndex(i)), kFormatColumns);
      append(row, chosen ? between("‹", title, "›") : between(" ", title, " "),
             chosen ? PanelStyle::chosenFormat : PanelStyle::format,
             Touch{"coordinateControl", segment});
    }
    const std::string_view open = openLabelName(interface_);
    const int room = inner_ - (end(row) - kLeft) - 1 - columnsOf("[] ▾");
    const std::string button = between("[", fitted(label(open), room), "]");
    const bool expanded = interface_.view("toggleViewButton").transform().rotation != 0;
    row.push_back(
        {kLeft + inner_ - 2 - columnsOf(button), button, PanelStyle::button, Touch{open}});
    append(row, " ", PanelStyle::button);
    append(row, expanded ? "▾" : "▸", PanelStyle::button, Touch{"toggleViewButton"});
    content(std::move(row));
  }

  const WidgetInterface& interface_;
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

Panel composePanel(const WidgetInterface& interface, const PanelRoom& room,
                   std::string_view caption) {
  const int columns = std::clamp(room.columns, kNarrowestPanel, kWidestPanel);
  const bool large = room.rows && room.unicode && columns >= kLargePanel && !isCompact(interface);
  auto sections = Composer(interface, columns, room.unicode, large).compose(caption);
  if (large && rowsOf(sections) > *room.rows) {
    sections = Composer(interface, columns, room.unicode, false).compose(caption);
  }

  Panel panel;
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

std::string_view openLabelName(const WidgetInterface& interface) {
  return isCompact(interface) ? "openMiniLabel" : "openLabel";
}

}  // namespace wayfell
