#include "hosts/terminal/LivePanel.h"

#include <csignal>
#include <utility>
#include <variant>

namespace wayfell {

LivePanel::LivePanel(EventLoop& loop, Terminal& terminal, Scene& scene)
    : loop_(loop),
      terminal_(terminal),
      scene_(scene),
      watch_(scene.interface()),
      screen_(terminal, scene) {
  loop_.onInput(
      terminal_.keyboard(), [this] { takeInput(); }, [this] { loop_.stop(); });
  loop_.onTurnEnd([this] { showChanges(); });
  loop_.onSignal(SIGWINCH, [this] { resize(); });
  loop_.onSignal(SIGTSTP, [this] { stopForNow(); });
  loop_.onSignal(SIGCONT, [this] { resume(); });
}

void LivePanel::run() {
  redraw();
  loop_.run();
}

void LivePanel::redraw() {
  watch_.takeChanged();
  screen_.draw();
}

void LivePanel::showChanges() {
  scene_.settle();
  const auto news = scene_.takeNews();
  if (news) screen_.tell(*news);
  if (watch_.takeChanged() || news || screen_.linesHaveChanged()) redraw();
}

void LivePanel::takeInput() {
  while (const auto input = terminal_.read()) {
    screen_.tell("");
    if (const auto* key = std::get_if<KeyPress>(&*input)) press(key->key);
    if (const auto* click = std::get_if<Click>(&*input)) act(screen_.requestAt(*click));
  }
  if (const auto news = scene_.takeNews()) screen_.tell(*news);
  redraw();
}

void LivePanel::press(char32_t key) {
  if (screen_.showsKeys()) return screen_.toggleKeys();
  act(requestOf(key));
}

void LivePanel::act(const std::optional<PanelRequest>& request) {
  if (!request) return;
  if (request->action == PanelAction::tellKeys) return screen_.toggleKeys();
  if (request->action == PanelAction::quit) return loop_.stop();
  scene_.act(*request);
}

void LivePanel::resize() {
  terminal_.resize();
  redraw();
}

void LivePanel::stopForNow() {
  scene_.suspend();
  terminal_.suspend();
  loop_.raiseDefault(SIGTSTP);
  resume();
  scene_.resume();
}

void LivePanel::resume() {
  terminal_.resume();
  redraw();
}

}  // namespace wayfell
