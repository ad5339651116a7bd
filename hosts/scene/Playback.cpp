#include "hosts/scene/Playback.h"

#include <algorithm>
#include <cmath>

namespace wayfell {
namespace {

constexpr std::chrono::seconds kLongestDelay{1};
// At high rates: more pictures in a second than this help nobody.
constexpr double kShortestWait = 0.03;  // seconds
// Longer sleeps are cut in pieces, so that no span overflows.
constexpr double kLongestWait = 3600;  // seconds
// What a user skips, and how much of it is left: recorded seconds.
constexpr double kShortestSkip = 10;
constexpr double kLead = 1;

}  // namespace

Playback::Playback(Player& player, double rate, Clock::time_point now)
    : player_(player),
      rate_(rate > 0 ? rate : 1),
      paused_(rate <= 0),
      position_(player.now()),
      last_(now) {}

void Playback::catchUp(Clock::time_point now) {
  const Clock::duration passed = std::min(now - last_, waited_ + kLongestDelay);
  last_ = now;
  if (!paused_) goOn(rate_ * std::chrono::duration<double>(passed).count());
}

std::optional<Playback::Milliseconds> Playback::wait() {
  waited_ = {};
  const auto due = player_.nextDue();
  if (paused_ || !due) return std::nullopt;
  const double seconds = std::clamp((*due - position_) / rate_, kShortestWait, kLongestWait);
  const Milliseconds wait(std::lround(std::ceil(seconds * 1000)));
  waited_ = wait;
  return wait;
}

void Playback::faster() {
  const auto* const next = std::upper_bound(kRates.begin(), kRates.end(), rate_);
  if (next != kRates.end()) rate_ = *next;
}

void Playback::slower() {
  const auto* const next = std::lower_bound(kRates.begin(), kRates.end(), rate_);
  if (next != kRates.begin()) rate_ = *std::prev(next);
}

void Playback::step() { goOn(kStepSeconds); }

void Playback::skipGap() {
  if (player_.ended()) return;
  const double left = player_.next().t - position_;
  if (left > kShortestSkip) goOn(left - kLead);
}

std::optional<double> Playback::untilNext() const {
  if (player_.ended()) return std::nullopt;
  return (player_.next().t - position_) / rate_;
}

void Playback::goOn(double seconds) {
  position_ += seconds;
  player_.advanceTo(position_);
  if (player_.ended()) position_ = player_.now();
}

}  // namespace wayfell
