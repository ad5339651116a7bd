#include "hosts/terminal/LivePanel.h"

#include <csignal>
#include <utility>
#include <variant>

#include "hosts/panel/Keys.h"

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
  scene_.catchUp();
  while (const auto input = terminal_.read()) {
    screen_.tell("");
    if (const auto* key = std::get_if<KeyPress>(&*input)) press(key->key);
    if (const auto* click = std::get_if<Click>(&*input)) touch(screen_.touchAt(*click));
  }
  if (const auto news = scene_.takeNews()) screen_.tell(*news);
  redraw();
}

void LivePanel::press(char32_t key) {
  if (screen_.showsKeys()) return screen_.toggleKeys();
  switch (key) {
    case U'0':
    case U'1':
    case U'2':
    case U'3':
    case U'4':
      return touch(Touch{"coordinateControl", static_cast<int>(key - U'0')});
    case U't':
    case U'\t':
    case kEnterKey:
      return touch(Touch{"toggleViewButton"});
    case U'o':
      return touch(Touch{openLabelName(scene_.interface())});
    case U'h':
      return scene_.onScreen() ? scene_.disappear() : scene_.appear();
    case U'?':
      return screen_.toggleKeys();
    case U'q':
      return loop_.stop();
    default:
      return scene_.press(key);
  }
}

// What is hidden cannot be touched.
void LivePanel::touch(const std::optional<Touch>& touch) {
  if (!touch || !scene_.onScreen()) return;
  if (touch->view == "coordinateControl") {
    scene_.pickSegment(touch->segment);
  } else {
    scene_.tap(touch->view);
  }
}

void LivePanel::resize() {
  terminal_.resize();
  redraw();
}

void LivePanel::stopForNow() {
  scene_.catchUp();
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
