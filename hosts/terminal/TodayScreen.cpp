#include "hosts/terminal/TodayScreen.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <string_view>
#include <utility>
#include <variant>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

// Those of the scene, below the panel.
int rowsOf(const Scene::Lines& lines) { return lines.credit.empty() ? 2 : 3; }

constexpr int kKeyColumns = 15;
constexpr std::string_view kGap = "  ";  // between hints
constexpr std::array kLeastActions = {PanelAction::tellKeys, PanelAction::quit};

// The hints that the line below the panel may have room for, the longest first.
std::array<std::string, 3> hintsOf(const Scene& scene) {
  using enum PanelAction;
  const PanelAction own = scene.actions().front();
  const std::array all = {pickFormat, switchLayout, showOrHide, own, tellKeys, quit};
  const std::array some = {switchLayout, own, tellKeys, quit};
  return {keyHints(all, kGap), keyHints(some, kGap), keyHints(kLeastActions, kGap)};
}

TerminalLook lookOf(TextStyle style) {
  switch (style) {
    case TextStyle::frame:
    case TextStyle::caption:
    case TextStyle::dots:
    case TextStyle::format:
      return {.dim = true};
    case TextStyle::value:
    case TextStyle::button:
      return {.bold = true};
    case TextStyle::mark:
      return {.bold = true, .color = TerminalColor::red};
    case TextStyle::arrow:
      return {.bold = true, .color = TerminalColor::green};
    case TextStyle::chosenFormat:
      return {.color = TerminalColor::blackOnCyan};
  }
  return {};
}

}  // namespace

TodayScreen::TodayScreen(EventLoop& loop, Terminal& terminal, Scene& scene)
    : loop_(loop), terminal_(terminal), scene_(scene), watch_(scene.interface()) {
  loop_.onInput(
      terminal_.keyboard(), [this] { takeInput(); }, [this] { loop_.stop(); });
  loop_.onTurnEnd([this] { showChanges(); });
  loop_.onSignal(SIGWINCH, [this] {
    terminal_.resize();
    draw();
  });
  loop_.onSignal(SIGTSTP, [this] { stopForNow(); });
  loop_.onSignal(SIGCONT, [this] { resume(); });
}

void TodayScreen::tell(std::string message) {
  message_ = std::move(message);
  if (!message_.empty()) lastMessage_ = message_;
}

void TodayScreen::run() {
  draw();
  loop_.run();
}

void TodayScreen::showChanges() {
  scene_.settle();
  const auto news = scene_.takeNews();
  if (news) tell(*news);
  if (watch_.takeChanged() || news || scene_.lines() != shownLines_) draw();
}

void TodayScreen::takeInput() {
  while (const auto input = terminal_.read()) {
    tell("");
    if (const auto* click = std::get_if<Click>(&*input)) {
      act(requestAt(*click));
    } else if (showsKeys_) {
      showsKeys_ = false;
    } else {
      act(requestOf(std::get<KeyPress>(*input).key));
    }
  }
  if (const auto news = scene_.takeNews()) tell(*news);
  draw();
}

void TodayScreen::act(const std::optional<PanelRequest>& request) {
  if (!request) return;
  if (request->action == PanelAction::tellKeys) {
    showsKeys_ = true;
  } else if (request->action == PanelAction::quit) {
    loop_.stop();
  } else {
    scene_.act(*request);
  }
}

void TodayScreen::stopForNow() {
  scene_.suspend();
  terminal_.suspend();
  loop_.raiseDefault(SIGTSTP);
  resume();
  scene_.resume();
}

void TodayScreen::resume() {
  terminal_.resume();
  draw();
}

void TodayScreen::draw() {
  watch_.takeChanged();
  shownLines_ = scene_.lines();
  const PanelRoom room{terminal_.columns(), std::max(0, terminal_.rows() - rowsOf(shownLines_)),
                       terminal_.unicode()};
  const ComposedPanel panel = composePanel(readPanel(scene_.interface()), room, "");
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

void TodayScreen::drawPanel(const ComposedPanel& panel) {
  for (int row = 0; row < std::ssize(panel.rows); ++row) {
    for (const TextSpan& span : panel.rows[static_cast<std::size_t>(row)]) {
      terminal_.put(row, left_ + span.column, span.text, lookOf(span.style));
    }
  }
  rows_ = panel.rows;
}

// And below them what the line below the panel has no room for. Returns how many rows it takes.
int TodayScreen::drawKeys(const ComposedPanel& panel, int mostRows) const {
  std::vector<PanelAction> actions(std::begin(kPanelActions), std::end(kPanelActions));
  const auto own = scene_.actions();
  actions.insert(actions.end(), own.begin(), own.end());
  actions.insert(actions.end(), kLeastActions.begin(), kLeastActions.end());
  int row = 0;
  for (const PanelAction action : actions) {
    if (row == mostRows) return row;
    const auto [keys, does] = helpOf(action);
    terminal_.put(row, left_ + 2, keys, {.bold = true});
    terminal_.put(row++, left_ + 2 + kKeyColumns, does);
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

std::string TodayScreen::message(const ComposedPanel& panel, int columns) const {
  if (const auto fault = scene_.fault()) return "Stopped: " + *fault;
  if (!message_.empty()) return message_;
  if (showsKeys_) return "";
  if (!scene_.onScreen()) return "h show  " + keyHints(kLeastActions, kGap);
  if (terminal_.columns() < kNarrowestPanel) {
    return "needs " + std::to_string(kNarrowestPanel) + " columns";
  }
  if (panel.missingRows > 0) {
    return std::to_string(panel.missingRows) +
           (panel.missingRows == 1 ? " row has no room" : " rows have no room");
  }
  for (const std::string& hint : hintsOf(scene_)) {
    if (columnsOf(hint) <= columns) return hint;
  }
  return "";
}

void TodayScreen::drawLines(int row, const ComposedPanel& panel) const {
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

std::optional<PanelRequest> TodayScreen::requestAt(Click click) const {
  if (click.row < 0 || click.row >= std::ssize(rows_)) return std::nullopt;
  for (const TextSpan& span : rows_[static_cast<std::size_t>(click.row)]) {
    const int column = click.column - left_ - span.column;
    if (span.request && column >= 0 && column < columnsOf(span.text)) return span.request;
  }
  return std::nullopt;
}

}  // namespace wayfell
