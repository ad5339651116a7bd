#include "hosts/replay/Player.h"

#include <algorithm>

#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

// How long nothing must happen that it pays to look for stillness.
constexpr double kLongGap = 60;  // seconds

}  // namespace

Player::Player(Recording& recording, ReplayedWidget& widget, std::function<void()> show)
    : onShow(std::move(show)), recording_(recording), widget_(widget), next_(recording.next()) {
  if (next_) {
    start_ = next_->t;
    widget_.host().loop.startAt({start_});
    advanceTo(start_);
  } else {
    act(event::Appear{});
  }
}

double Player::now() const { return widget_.host().loop.now().timeIntervalSinceReferenceDate; }

void Player::advanceTo(double t) {
  while (next_ && next_->t <= t) playNext();
  if (next_) passTo(t);
}

void Player::passTo(double t) {
  if (gap_ >= kLongGap) {
    stillness_.advanceTo(t);
  } else {
    widget_.host().loop.advanceTo({t});
  }
}

void Player::advanceToFirstFix() {
  const TodayViewController& controller = widget_.controller();
  while (next_ && !controller.currentLocation) playNext();
  advanceTo(now());
}

void Player::playNext() {
  passTo(next_->t);
  act(next_->action);
  if (onShow && std::holds_alternative<event::Show>(next_->action)) onShow();
  readNext();
  if (!next_ && !widget_.loaded()) act(event::Appear{});
}

void Player::readNext() {
  next_.reset();  // nothing more can be read after a fault
  try {
    next_ = recording_.next();
  } catch (const InputError& error) {
    fault_ = error.what();
  }
  if (next_) gap_ = next_->t - now();
}

void Player::act(const Action& action) {
  const bool wasLoaded = widget_.loaded();
  widget_.apply(action);
  stillness_.disturb();
  if (std::holds_alternative<event::Disappear>(action)) {
    onScreen_ = false;
  } else if (std::holds_alternative<event::Appear>(action) || wasLoaded != widget_.loaded()) {
    onScreen_ = true;
  }
}

std::optional<double> Player::nextDue() const {
  if (!next_) return std::nullopt;
  const auto timer = widget_.host().loop.nextDueDate();
  return timer ? std::min(next_->t, timer->timeIntervalSinceReferenceDate) : next_->t;
}

}  // namespace wayfell
