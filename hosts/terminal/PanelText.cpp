#include "hosts/terminal/PanelText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "hosts/services/Utf8.h"
#include "hosts/terminal/TextWidth.h"

namespace wayfell {
namespace {

constexpr double kPointsPerTurn = -300;  // by which the tape moves
constexpr double kMarksPerTurn = 8;      // labels on the tape: N, 45, E ...
constexpr int kTapeColumns = 25;         // odd, for the mark to stand in the middle
constexpr int kCaptionColumns = 11;      // "Longitude" and a gap
constexpr int kCellGap = 2;

std::string text(const UILabel& label) { return printable(label.text().value_or("")); }

std::vector<std::string> linesOf(std::string_view text, std::string_view separator) {
  std::vector<std::string> lines;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = text.find(separator);
    lines.push_back(printable(text.substr(0, end)));
    if (end != std::string_view::npos) text.remove_prefix(end + separator.size());
  }
  return lines;
}

std::string padded(std::string text, int columns) {
  return text + std::string(static_cast<std::size_t>(std::max(0, columns - columnsOf(text))), ' ');
}

// With a blank on either side, unless there is none.
std::string spaced(std::string_view text) {
  if (text.empty()) return "";
  std::string result(" ");
  result += text;
  result += ' ';
  return result;
}

// One text at the left end, the other at the right end.
std::string justified(std::string_view left, std::string_view right, int columns) {
  const int gap = std::max(1, columns - columnsOf(left) - columnsOf(right));
  return std::string(left) + std::string(static_cast<std::size_t>(gap), ' ') + std::string(right);
}

// The arrow that is nearest to a direction, in degrees clockwise from up.
std::string_view arrowTo(double direction) {
  constexpr std::array<std::string_view, 8> kArrows = {"↑", "↗", "→", "↘", "↓", "↙", "←", "↖"};
  const double turns = direction / 360;
  const double eighths = std::round((turns - std::floor(turns)) * 8);
  return std::isfinite(eighths) ? kArrows[static_cast<std::size_t>(eighths) % 8] : "?";
}

// Characters of the tape, one a column.
std::vector<std::string> glyphsOf(const UILabel& tape) {
  const std::string all = text(tape);
  std::vector<std::string> glyphs;
  for (std::string_view rest = all; !rest.empty();) {
    glyphs.emplace_back();
    appendCodePoint(glyphs.back(), takeCodePoint(rest).value_or(U' '));
  }
  return glyphs;
}

// Where the labels between the dots have their middles.
std::vector<double> labelsOf(const std::vector<std::string>& glyphs) {
  std::vector<double> middles;
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    if (glyphs[i] == ".") continue;
    const std::size_t first = i;
    while (i + 1 < glyphs.size() && glyphs[i + 1] != ".") ++i;
    middles.push_back(static_cast<double>(first + i) / 2);
  }
  return middles;
}

// The glyph under the mark. In the interface's font 300 points span one turn; with one column a
// character the labels are not evenly spaced, so the place is taken between the two nearest. The
// second label is due north.
std::ptrdiff_t glyphUnderMark(const std::vector<double>& labels, double offset) {
  if (labels.size() < 2) return 0;
  const double label = 1 + (std::isfinite(offset) ? offset : 0) / kPointsPerTurn * kMarksPerTurn;
  const double last = static_cast<double>(labels.size() - 1);
  const double before = std::clamp(std::floor(label), 0.0, last - 1);
  const auto i = static_cast<std::size_t>(before);
  const double place = labels[i] + (label - before) * (labels[i + 1] - labels[i]);
  return static_cast<std::ptrdiff_t>(std::round(std::clamp(place, labels.front(), labels.back())));
}

class PanelWriter {
 public:
  PanelWriter(const WidgetInterface& interface, int columns)
      : interface_(interface), inner_(std::max(columns, kPanelColumns) - 4) {}

  std::vector<std::string> write(std::string_view caption) {
    top(caption);
    if (!compact()) compass();
    position();
    cells("altitude", "speed");
    if (!compact() && shown("waypointDataView")) waypoint();
    track();
    if (!compact()) address();
    controls();
    lines_.push_back("╰" + repeated("─", inner_ + 2) + "╯");
    return std::move(lines_);
  }

 private:
  bool shown(std::string_view name) const { return !interface_.view(name).hidden(); }
  bool compact() const { return shown("miniTrackDataView") && !shown("trackDataView"); }
  std::string label(const std::string& name) const { return text(interface_.label(name)); }

  void line(std::string_view content) {
    lines_.push_back("│ " + padded(fitted(content, inner_), inner_) + " │");
  }
  void rule(std::string_view title = "") {
    const std::string words = spaced(title);
    lines_.push_back("├─" + words + repeated("─", inner_ + 1 - columnsOf(words)) + "┤");
  }
  void top(std::string_view caption) {
    const std::string words = spaced(printable(caption));
    const std::string title = " Wayfell ";
    lines_.push_back("╭─" + title + repeated("─", inner_ - columnsOf(title) - columnsOf(words)) +
                     words + "─╮");
  }

  void compass() {
    const std::vector<std::string> glyphs = glyphsOf(interface_.label("compassLabel"));
    const std::ptrdiff_t marked =
        glyphUnderMark(labelsOf(glyphs), interface_.leftConstraint().constant().value_or(0));
    std::string window;
    for (std::ptrdiff_t i = marked - kTapeColumns / 2; i <= marked + kTapeColumns / 2; ++i) {
      const bool inside = i >= 0 && i < std::ssize(glyphs);
      window += inside ? glyphs[static_cast<std::size_t>(i)] : " ";
    }
    line(repeated(" ", kTapeColumns / 2) + (shown("compassArrowImageView") ? "▼" : " "));
    line(justified(window, label("headingLabel"), inner_));
  }

  void position() {
    if (!shown("dataView")) return;
    std::vector<std::string> captions;
    if (shown("latLongLabel")) captions = linesOf(labelText("latLongLabel"), "\n");
    std::vector<std::string> values = linesOf(labelText("userCoordinateLabel"), "\n");
    // Latitude and longitude come as one text; a line for each if the caption has one for each.
    if (values.size() == 1 && captions.size() > 1) values = linesOf(values.front(), ", ");
    if (!labelText("utmZoneLabel").empty()) {
      const auto zone = linesOf(labelText("utmZoneLabel"), "\n");
      values.insert(values.end(), zone.begin(), zone.end());
    }
    captions.resize(std::max(captions.size(), values.size()));
    values.resize(captions.size());
    for (std::size_t i = 0; i < captions.size(); ++i) {
      const std::string& value = values[i];
      const std::size_t blanks = std::min(value.find_first_not_of(' '), value.size());
      line(padded(captions[i], kCaptionColumns) + value.substr(blanks));
    }
  }
  std::string labelText(std::string_view name) const {
    return interface_.label(name).text().value_or("");
  }

  // Two captions with their values, side by side.
  void cells(const std::string& left, const std::string& right) {
    const auto caption = [this](const std::string& name) { return label(name + "NameLabel"); };
    const auto value = [this](const std::string& name) { return label(name + "Label"); };
    const int half = (inner_ - kCellGap) / 2;
    const std::string second = justified(caption(right), value(right), half);
    const std::string first =
        justified(caption(left), value(left), std::min(half, inner_ - 1 - columnsOf(second)));
    line(justified(first, second, inner_));
  }

  void waypoint() {
    const auto& arrow = interface_.compassRotatingView().arrow();
    const bool pointing = arrow && shown("compassRotatingView") && shown("compassArrowView");
    rule(pointing ? "Waypoint " + std::string(arrowTo(arrow->bearing - arrow->heading))
                  : "Waypoint");
    cells("waypointDistance", "eta");
  }

  void track() {
    if (shown("trackDataView")) {
      rule("Track");
      cells("time", "distance");
    }
    if (shown("miniTrackDataView")) {
      rule("Track");
      cells("miniTime", "miniDistance");
    }
  }

  void address() {
    rule();
    line(label("addressLabel"));
  }

  // The formats, the one in use marked, and the buttons.
  void controls() {
    if (compact()) rule();
    const UISegmentedControl& control = interface_.coordinateControl();
    std::string formats;
    for (std::size_t i = 0; i < control.numberOfSegments(); ++i) {
      const bool selected = control.selectedSegmentIndex() == static_cast<int>(i);
      const std::string title = printable(control.titleForSegmentAtIndex(i));
      formats += selected ? "‹" + title + "›" : " " + title + " ";
    }
    const std::string open = label(compact() ? "openMiniLabel" : "openLabel");
    const bool expanded = interface_.view("toggleViewButton").transform().rotation != 0;
    line(justified(formats, "[" + open + "] " + (expanded ? "▾" : "▸"), inner_));
  }

  const WidgetInterface& interface_;
  int inner_;  // columns between the frame's lines and a blank at each
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> panelText(const WidgetInterface& interface, std::string_view caption,
                                   int columns) {
  return PanelWriter(interface, columns).write(caption);
}

}  // namespace wayfell
