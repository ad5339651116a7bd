#include "hosts/scene/PlayedScene.h"

#include <chrono>
#include <utility>

#include "hosts/places/DatumNote.h"
#include "hosts/scene/FixWarning.h"
#include "hosts/scene/SpanText.h"
#include "hosts/text/ElapsedText.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// From how long a wait on the user is told that it can be skipped.
constexpr double kLongWait = 60;  // seconds
constexpr SpanKeys kGapKeys = {textKey("n skips %d s"), textKey("n skips %d min"),
                               textKey("n skips %d h"), textKey("n skips %d days")};

}  // namespace

PlayedScene::PlayedScene(IoRunLoop& loop, Player& player, double rate, Kind kind, std::string title)
    : loop_(loop),
      player_(player),
      playback_(player, rate, Playback::Clock::now()),
      kind_(kind),
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

std::optional<double> PlayedScene::fixAge() const {
  const auto& fix = player_.widget().controller().currentLocation;
  if (!fix) return std::nullopt;
  return NSDate{player_.now()}.timeIntervalSinceDate(fix->timestamp);
}

Scene::Lines PlayedScene::lines() const {
  Lines lines{kind_, title_, elapsedText(player_.elapsed()), {}, {}, selectedDatumNote()};
  const auto addState = [&lines](std::string_view word) { lines.state.append("  ").append(word); };
  if (player_.ended()) {
    addState(localized("ended"));
  } else {
    if (playback_.paused()) addState(localized("paused"));
    if (playback_.rate() != 1) addState("×" + shortestText(playback_.rate()));
    if (playback_.untilNext() > kLongWait) addState(spanText(kGapKeys, player_.gap()));
  }
  lines.warning = fixWarning(player_.widget().controller(), fixAge());
  return lines;
}

Freshness PlayedScene::freshness() const {
  const auto age = fixAge();
  return {.fix = age && isFreshFix(*age),
          .moving = player_.widget().controller().velocityManager().averageSpeed() > 0};
}

std::optional<std::string> PlayedScene::takeNews() {
  const auto& requests = player_.widget().host().urls.requests;
  if (requests.size() < told_) told_ = 0;  // a snapshot has taken them
  if (requests.size() == told_) return std::nullopt;
  urls_ += static_cast<int>(requests.size() - told_);
  told_ = requests.size();
  const auto& url = requests.back();
  const std::string shown = url ? url->absoluteString() : std::string(localized("no valid URL"));
  return urls_ == 1 ? localizedStringWithFormat("Open: %@", shown)
                    : localizedStringWithFormat("Open %d: %@", urls_, shown);
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
    case PanelAction::skipGap:
      playback_.skipGap();
      break;
    default:
      return;
  }
  sleep();
}

}  // namespace wayfell
