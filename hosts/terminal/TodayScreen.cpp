#include "hosts/terminal/TodayScreen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "hosts/terminal/Elapsed.h"
#include "hosts/terminal/TextWidth.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr int kLines = 2;
constexpr double kFreshSeconds = 5;  // a fix that is no older needs no mention

struct KeyHelp {
  std::string_view keys;
  std::string_view does;
};
constexpr std::array kKeyHelp = {
    KeyHelp{"0 to 4", "format of the position"},
    KeyHelp{"t, Tab, Enter", "expanded or compact"},
    KeyHelp{"o", "open the app"},
    KeyHelp{"h", "hide or show the panel"},
    KeyHelp{"space", "pause or go on"},
    KeyHelp{". or right", "one second on, in a pause"},
    KeyHelp{"+ and -", "faster and slower"},
    KeyHelp{"?", "these keys; any key goes back"},
    KeyHelp{"q", "quit"},
};
constexpr int kKeyColumns = 15;

// The longest that fits is shown.
constexpr std::array<std::string_view, 3> kHints = {
    "0-4 format  t layout  h hide  space pause  ? keys  q quit",
    "t layout  space pause  ? keys  q quit", "? keys  q quit"};

TerminalLook lookOf(PanelStyle style) {
  switch (style) {
    case PanelStyle::frame:
    case PanelStyle::caption:
    case PanelStyle::dots:
    case PanelStyle::format:
      return {.dim = true};
    case PanelStyle::value:
    case PanelStyle::button:
      return {.bold = true};
    case PanelStyle::mark:
      return {.bold = true, .color = TerminalColor::red};
    case PanelStyle::arrow:
      return {.bold = true, .color = TerminalColor::green};
    case PanelStyle::chosenFormat:
      return {.color = TerminalColor::blackOnCyan};
  }
  return {};
}

}  // namespace

TodayScreen::TodayScreen(Terminal& terminal, const Player& player, const Playback& playback,
                         std::string badge, std::string title)
    : terminal_(terminal),
      player_(player),
      playback_(playback),
      badge_(std::move(badge)),
      title_(std::move(title)) {}

TodayScreen::Lines TodayScreen::lines() const {
  Lines lines;
  lines.playing = elapsedText(player_.elapsed());
  if (player_.ended()) {
    lines.playing += "  ended";
  } else {
    if (playback_.paused()) lines.playing += "  paused";
    if (playback_.rate() != 1) lines.playing += "  ×" + shortestText(playback_.rate());
  }
  const auto& fix = player_.widget().controller().currentLocation;
  if (!fix) {
    lines.age = "no fix yet";
  } else if (const double age = NSDate{player_.now()}.timeIntervalSinceDate(fix->timestamp);
             age > kFreshSeconds) {
    lines.age = "fix " + shortestText(std::floor(age)) + " s old";
  }
  return lines;
}

bool TodayScreen::linesHaveChanged() const { return lines() != shownLines_; }

void TodayScreen::draw() {
  const PanelRoom room{terminal_.columns(), std::max(0, terminal_.rows() - kLines),
                       terminal_.unicode()};
  Panel panel = composePanel(player_.widget().interface(), room, "");
  left_ = std::max(0, (terminal_.columns() - panel.columns) / 2);
  terminal_.clear();
  rows_.clear();
  int height = static_cast<int>(panel.rows.size());
  if (showsKeys_) {
    height = std::min(static_cast<int>(kKeyHelp.size()), *room.rows);
    drawKeys(height);
  } else if (player_.onScreen()) {
    drawPanel(panel);
  } else {
    height = std::min(1, *room.rows);
    terminal_.put(0, left_ + 2, height > 0 ? "The panel is hidden." : "", {.dim = true});
  }
  shownLines_ = lines();
  drawLines(height, panel);
  terminal_.show();
}

void TodayScreen::drawPanel(const Panel& panel) {
  for (int row = 0; row < std::ssize(panel.rows); ++row) {
    for (const PanelSpan& span : panel.rows[static_cast<std::size_t>(row)]) {
      terminal_.put(row, left_ + span.column, span.text, lookOf(span.style));
    }
  }
  rows_ = panel.rows;
}

void TodayScreen::drawKeys(int rows) const {
  for (int row = 0; row < rows; ++row) {
    const KeyHelp& help = kKeyHelp[static_cast<std::size_t>(row)];
    terminal_.put(row, left_ + 2, help.keys, {.bold = true});
    terminal_.put(row, left_ + 2 + kKeyColumns, help.does);
  }
}

std::string TodayScreen::message(const Panel& panel, int columns) const {
  if (player_.fault()) return "Stopped: " + *player_.fault();
  if (!message_.empty()) return message_;
  if (showsKeys_) return "";
  if (!player_.onScreen()) return "h show  ? keys  q quit";
  if (terminal_.columns() < kNarrowestPanel) {
    return "needs " + std::to_string(kNarrowestPanel) + " columns";
  }
  if (panel.missingRows > 0) {
    return std::to_string(panel.missingRows) +
           (panel.missingRows == 1 ? " row has no room" : " rows have no room");
  }
  for (const std::string_view hint : kHints) {
    if (columnsOf(hint) <= columns) return std::string(hint);
  }
  return "";
}

void TodayScreen::drawLines(int row, const Panel& panel) const {
  const int first = left_ + 1;
  const int last = left_ + std::min(terminal_.columns(), panel.columns) - 1;  // the column after
  const auto putRight = [&](int line, const std::string& text, TerminalLook look) {
    terminal_.put(line, std::max(first, last - columnsOf(text)), text, look);
  };

  const std::string badge = " " + badge_ + " ";
  const int title = first + columnsOf(badge) + 1;
  terminal_.put(row, first, badge, {.bold = true, .reverse = true});
  terminal_.put(row, title, fitted(title_, last - columnsOf(shownLines_.playing) - 2 - title));
  putRight(row, shownLines_.playing, {.bold = true});

  const int ageColumns = shownLines_.age.empty() ? 0 : columnsOf(shownLines_.age) + 1;
  const int columns = last - first - 1 - ageColumns;
  terminal_.put(row + 1, first + 1, fitted(printable(message(panel, columns)), columns),
                {.dim = true});
  putRight(row + 1, shownLines_.age, {.bold = true, .color = TerminalColor::red});
}

std::optional<Touch> TodayScreen::touchAt(Click click) const {
  if (click.row < 0 || click.row >= std::ssize(rows_)) return std::nullopt;
  for (const PanelSpan& span : rows_[static_cast<std::size_t>(click.row)]) {
    const int column = click.column - left_ - span.column;
    if (span.touch && column >= 0 && column < columnsOf(span.text)) return span.touch;
  }
  return std::nullopt;
}

}  // namespace wayfell
