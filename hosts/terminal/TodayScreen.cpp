#include "hosts/terminal/TodayScreen.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <string_view>
#include <utility>
#include <variant>

#include "hosts/terminal/HostLines.h"
#include "hosts/terminal/KeyPage.h"
#include "hosts/text/TextWidth.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr std::string_view kGap = "  ";  // between hints
constexpr std::array kLeastActions = {PanelAction::tellKeys, PanelAction::quit};

std::vector<PanelAction> actionsOf(const Scene& scene) {
  std::vector<PanelAction> actions(std::begin(kPanelActions), std::end(kPanelActions));
  const auto own = scene.actions();
  actions.insert(actions.end(), own.begin(), own.end());
  actions.insert(actions.end(), kLeastActions.begin(), kLeastActions.end());
  return actions;
}

std::vector<std::string> hintsOf(const Scene& scene) {
  using enum PanelAction;
  const std::string least = keyHints(kLeastActions, kGap);
  if (!scene.onScreen()) {
    return {std::string(localized("h show")).append(kGap).append(least), least};
  }
  const PanelAction own = scene.actions().front();
  const std::array all = {pickFormat, switchLayout, showOrHide, own, tellKeys, quit};
  const std::array some = {switchLayout, own, tellKeys, quit};
  return {keyHints(all, kGap), keyHints(some, kGap), least};
}

// What stands in its place, to be clicked on anywhere.
std::vector<TextRow> hiddenPanel(int columns, int mostRows) {
  constexpr int kLeft = 2;
  std::vector<TextRow> rows;
  const auto text = localized("Panel hidden: h or a click shows it.");
  for (const std::string& line : wrapped(text, columns - 2 * kLeft)) {
    if (std::ssize(rows) == mostRows) break;
    rows.push_back(
        {{0, repeated(" ", kLeft) + line + repeated(" ", columns - kLeft - columnsOf(line)),
          TextStyle::remark, PanelRequest{PanelAction::showOrHide}}});
  }
  return rows;
}

TerminalLook lookOf(TextStyle style) {
  switch (style) {
    case TextStyle::frame:
    case TextStyle::caption:
    case TextStyle::dots:
    case TextStyle::format:
    case TextStyle::stale:
    case TextStyle::remark:
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
    case TextStyle::badge:
      return {.bold = true, .reverse = true};
    case TextStyle::warning:
      return {.bold = true, .color = TerminalColor::red};
    case TextStyle::plain:
      return {};
  }
  return {};
}

}  // namespace

TodayScreen::TodayScreen(EventLoop& loop, Terminal& terminal, Scene& scene)
    : loop_(loop), terminal_(terminal), scene_(scene), watch_(scene) {
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
  if (watch_.takeChanged() || news || scene_.lines() != shownLines_ ||
      scene_.freshness() != shownFreshness_) {
    draw();
  }
}

void TodayScreen::takeInput() {
  while (const auto input = terminal_.read()) {
    tell("");
    const bool showedKeys = std::exchange(showsKeys_, false);
    if (const auto* click = std::get_if<Click>(&*input)) {
      act(requestAt(*click));
    } else if (!showedKeys) {
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
  compose();
  terminal_.clear();
  for (int row = 0; row < std::ssize(rows_); ++row) {
    for (const TextSpan& span : rows_[static_cast<std::size_t>(row)]) {
      terminal_.put(row, left_ + span.column, span.text, lookOf(span.style));
    }
  }
  terminal_.show();
}

void TodayScreen::compose() {
  watch_.takeChanged();
  shownLines_ = scene_.lines();
  shownFreshness_ = scene_.freshness();
  HostLines host{shownLines_, "", {}};
  const int rows = std::max(0, terminal_.rows() - leastRowsOf(host));
  const ComposedPanel panel = composePanel(readPanel(scene_.interface(), shownFreshness_),
                                           {terminal_.columns(), rows, terminal_.unicode()}, "");
  left_ = std::max(0, (terminal_.columns() - panel.columns) / 2);
  if (showsKeys_) {
    rows_ = composeKeyPage(actionsOf(scene_), lastMessage_, panel.columns, rows);
  } else {
    rows_ = scene_.onScreen() ? panel.rows : hiddenPanel(panel.columns, rows);
  }
  host.message = message(panel);
  if (host.message.empty() && !showsKeys_) host.hints = hintsOf(scene_);
  const int columns = std::min(terminal_.columns(), panel.columns);
  const int left = terminal_.rows() - static_cast<int>(rows_.size());
  for (TextRow& row : composeHostLines(host, columns, left)) rows_.push_back(std::move(row));
}

// What is to be told below the panel rather than hints.
std::string TodayScreen::message(const ComposedPanel& panel) const {
  if (const auto fault = scene_.fault()) return localizedStringWithFormat("Stopped: %@", *fault);
  if (!message_.empty()) return message_;
  if (showsKeys_ || !scene_.onScreen()) return "";
  if (terminal_.columns() < kNarrowestPanel) {
    return localizedStringWithFormat("needs %d columns", kNarrowestPanel);
  }
  if (panel.missingRows > 0) {
    return localizedStringWithFormat("rows without room: %d", panel.missingRows);
  }
  return "";
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
