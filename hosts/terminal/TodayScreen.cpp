#include "hosts/terminal/TodayScreen.h"

#include <algorithm>
#include <string_view>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

// Those of the scene, below the panel.
int rowsOf(const Scene::Lines& lines) { return lines.credit.empty() ? 2 : 3; }

constexpr int kKeyColumns = 15;

std::vector<Scene::Key> allKeys(const Scene& scene) {
  std::vector<Scene::Key> keys = {{"0 to 4", "format of the position"},
                                  {"t, Tab, Enter", "expanded or compact"},
                                  {"o", "open the app"},
                                  {"h", "hide or show the panel"}};
  const auto more = scene.keys();
  keys.insert(keys.end(), more.begin(), more.end());
  keys.push_back({"?", "these keys; any key goes back"});
  keys.push_back({"q", "quit"});
  return keys;
}

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

void TodayScreen::tell(std::string message) {
  message_ = std::move(message);
  if (!message_.empty()) lastMessage_ = message_;
}

bool TodayScreen::linesHaveChanged() const { return scene_.lines() != shownLines_; }

void TodayScreen::draw() {
  shownLines_ = scene_.lines();
  const PanelRoom room{terminal_.columns(), std::max(0, terminal_.rows() - rowsOf(shownLines_)),
                       terminal_.unicode()};
  Panel panel = composePanel(scene_.interface(), room, "");
  left_ = std::max(0, (terminal_.columns() - panel.columns) / 2);
  terminal_.clear();
  rows_.clear();
  int height = static_cast<int>(panel.rows.size());
  if (showsKeys_) {
    height = drawKeys(panel, *room.rows);
  } else if (scene_.onScreen()) {
    drawPanel(panel);
  } else {
    height = std::min(1, *room.rows);
    terminal_.put(0, left_ + 2, height > 0 ? "The panel is hidden." : "", {.dim = true});
  }
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

// And below them what the line below the panel has no room for. Returns how many rows it takes.
int TodayScreen::drawKeys(const Panel& panel, int mostRows) const {
  int row = 0;
  for (const Scene::Key& key : allKeys(scene_)) {
    if (row == mostRows) return row;
    terminal_.put(row, left_ + 2, key.keys, {.bold = true});
    terminal_.put(row++, left_ + 2 + kKeyColumns, key.does);
  }
  const int columns = panel.columns - 4;
  const std::string message = printable(lastMessage_);
  if (columnsOf(message) <= columns) return row;
  for (const std::string& line : wrapped(message, columns)) {
    if (row == mostRows) return row;
    terminal_.put(row++, left_ + 2, line, {.dim = true});
  }
  return row;
}

std::string TodayScreen::message(const Panel& panel, int columns) const {
  if (const auto fault = scene_.fault()) return "Stopped: " + *fault;
  if (!message_.empty()) return message_;
  if (showsKeys_) return "";
  if (!scene_.onScreen()) return "h show  ? keys  q quit";
  if (terminal_.columns() < kNarrowestPanel) {
    return "needs " + std::to_string(kNarrowestPanel) + " columns";
  }
  if (panel.missingRows > 0) {
    return std::to_string(panel.missingRows) +
           (panel.missingRows == 1 ? " row has no room" : " rows have no room");
  }
  for (const std::string_view hint : scene_.hints()) {
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

  const std::string badge = " " + shownLines_.badge + " ";
  const int title = first + columnsOf(badge) + 1;
  terminal_.put(row, first, badge, {.bold = true, .reverse = true});
  terminal_.put(
      row, title,
      fitted(printable(shownLines_.title), last - columnsOf(shownLines_.state) - 2 - title));
  putRight(row, shownLines_.state, {.bold = true});

  const std::string warning = fitted(printable(shownLines_.warning), last - first - 1);
  const int warningColumns = warning.empty() ? 0 : columnsOf(warning) + 1;
  const int columns = last - first - 1 - warningColumns;
  terminal_.put(row + 1, first + 1, fitted(printable(message(panel, columns)), columns),
                {.dim = true});
  putRight(row + 1, warning, {.bold = true, .color = TerminalColor::red});
  terminal_.put(row + 2, first + 1, fitted(printable(shownLines_.credit), last - first - 1),
                {.dim = true});
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
