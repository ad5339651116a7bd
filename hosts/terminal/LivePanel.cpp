#include "hosts/terminal/LivePanel.h"

#include <csignal>
#include <utility>
#include <variant>

#include "platform/NSString.h"

namespace wayfell {

LivePanel::LivePanel(EventLoop& loop, Terminal& terminal, Player& player, double rate,
                     std::string badge, std::string title)
    : loop_(loop),
      terminal_(terminal),
      player_(player),
      playback_(player, rate, Playback::Clock::now()),
      watch_(player.widget().interface()),
      screen_(terminal, player, playback_, std::move(badge), std::move(title)) {
  loop_.onReadable(
      terminal_.keyboard(), [this] { takeInput(); }, [this] { loop_.stop(); });
  loop_.onWaited([this] { goOn(); });
  loop_.onSignal(SIGWINCH, [this] { resize(); });
  loop_.onSignal(SIGTSTP, [this] { stopForNow(); });
  loop_.onSignal(SIGCONT, [this] { resume(); });
}

void LivePanel::run() {
  redraw();
  loop_.setWait(playback_.wait());
  loop_.run();
}

void LivePanel::redraw() {
  watch_.takeChanged();
  screen_.draw();
}

// Plays what is due, and sees to it that the next is played in time.
void LivePanel::goOn() {
  playback_.catchUp(Playback::Clock::now());
  const bool told = tellOfURLs();
  if (watch_.takeChanged() || told || screen_.linesHaveChanged()) redraw();
  loop_.setWait(playback_.wait());
}

bool LivePanel::tellOfURLs() {
  auto& requests = player_.widget().host().urls.requests;
  if (requests.empty()) return false;
  const auto& url = requests.back();
  urls_ += static_cast<int>(requests.size());
  std::string message = urls_ == 1 ? "Open: " : stringWithFormat("Open %d: ", urls_);
  screen_.tell(message.append(url ? url->absoluteString() : "no valid URL"));
  requests.clear();
  return true;
}

void LivePanel::takeInput() {
  playback_.catchUp(Playback::Clock::now());
  while (const auto input = terminal_.read()) {
    screen_.tell("");
    if (const auto* key = std::get_if<KeyPress>(&*input)) press(key->key);
    if (const auto* click = std::get_if<Click>(&*input)) touch(screen_.touchAt(*click));
  }
  tellOfURLs();
  redraw();
  loop_.setWait(playback_.wait());
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
      return touch(Touch{openLabelName(player_.widget().interface())});
    case U'h':
      return player_.onScreen() ? player_.act(event::Disappear{}) : player_.act(event::Appear{});
    case U' ':
      return playback_.togglePause();
    case U'.':
    case kRightKey:
      if (playback_.paused()) playback_.step();
      return;
    case U'+':
      return playback_.faster();
    case U'-':
      return playback_.slower();
    case U'?':
      return screen_.toggleKeys();
    case U'q':
      return loop_.stop();
    default:
      return;
  }
}

// What is hidden cannot be touched.
void LivePanel::touch(const std::optional<Touch>& touch) {
  if (!touch || !player_.onScreen()) return;
  if (touch->view == "coordinateControl") {
    player_.act(event::PickSegment{touch->segment});
  } else {
    player_.act(event::Tap{std::string(touch->view)});
  }
}

void LivePanel::resize() {
  terminal_.resize();
  redraw();
}

void LivePanel::stopForNow() {
  playback_.catchUp(Playback::Clock::now());
  terminal_.suspend();
  loop_.raiseDefault(SIGTSTP);
  resume();
  playback_.skipTo(Playback::Clock::now());
}

void LivePanel::resume() {
  terminal_.resume();
  redraw();
}

}  // namespace wayfell
