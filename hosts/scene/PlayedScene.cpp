#include "hosts/scene/PlayedScene.h"

#include <chrono>
#include <utility>

#include "hosts/scene/FixAge.h"
#include "hosts/text/ElapsedText.h"
#include "platform/NSString.h"

namespace wayfell {

PlayedScene::PlayedScene(IoRunLoop& loop, Player& player, double rate, std::string badge,
                         std::string title)
    : loop_(loop),
      player_(player),
      playback_(player, rate, Playback::Clock::now()),
      badge_(std::move(badge)),
      title_(std::move(title)) {
  sleep();
}

PlayedScene::~PlayedScene() {
  if (timer_) loop_.cancelTimer(*timer_);
}

void PlayedScene::catchUp() {
  playback_.catchUp(Playback::Clock::now());
  sleep();
}

// Until the next thing is due.
void PlayedScene::sleep() {
  if (timer_) loop_.cancelTimer(*std::exchange(timer_, std::nullopt));
  const auto wait = playback_.wait();
  if (!wait) return;
  timer_ = loop_.scheduleTimer(std::chrono::duration<double>(*wait).count(), false, [this] {
    timer_.reset();
    catchUp();
  });
}

void PlayedScene::resume() { playback_.skipTo(Playback::Clock::now()); }

Scene::Lines PlayedScene::lines() const {
  Lines lines{badge_, title_, elapsedText(player_.elapsed()), {}, {}};
  if (player_.ended()) {
    lines.state += "  ended";
  } else {
    if (playback_.paused()) lines.state += "  paused";
    if (playback_.rate() != 1) lines.state += "  ×" + shortestText(playback_.rate());
  }
  const auto& fix = player_.widget().controller().currentLocation;
  lines.warning =
      fix ? fixAgeText(NSDate{player_.now()}.timeIntervalSinceDate(fix->timestamp)) : kNoFixYet;
  return lines;
}

std::optional<std::string> PlayedScene::takeNews() {
  const auto& requests = player_.widget().host().urls.requests;
  if (requests.size() < told_) told_ = 0;  // a snapshot has taken them
  if (requests.size() == told_) return std::nullopt;
  urls_ += static_cast<int>(requests.size() - told_);
  told_ = requests.size();
  const auto& url = requests.back();
  std::string news = urls_ == 1 ? "Open: " : stringWithFormat("Open %d: ", urls_);
  return news.append(url ? url->absoluteString() : "no valid URL");
}

void PlayedScene::actItself(const PanelRequest& request) {
  switch (request.action) {
    case PanelAction::pause:
      playback_.togglePause();
      break;
    case PanelAction::stepOn:
      if (playback_.paused()) playback_.step();
      break;
    case PanelAction::changeRate:
      request.number > 0 ? playback_.faster() : playback_.slower();
      break;
    default:
      return;
  }
  sleep();
}

}  // namespace wayfell
