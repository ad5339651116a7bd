#include "hosts/replay/Stillness.h"

namespace wayfell {

Stillness::State::State(const ReplayedWidget& widget)
    : averageSpeed(widget.controller().velocityManager().averageSpeed()),
      zeroSpeed(widget.controller().velocityManager().zeroSpeed()),
      paceTimerClock(widget.controller().velocityManager().paceTimerClock()) {
  const PanelViews& views = widget.interface().views();
  texts = {views.speedLabel.text(),    views.speedNameLabel.text(), views.etaLabel.text(),
           views.distanceLabel.text(), views.timeLabel.text(),      views.miniDistanceLabel.text(),
           views.miniTimeLabel.text()};
}

void Stillness::advanceTo(double t) {
  SimulatedRunLoop& loop = widget_.host().loop;
  const auto due = [&] { return loop.nextDueDate()->timeIntervalSinceReferenceDate; };
  while (!reached() && due() <= t) {
    loop.fireNext();
    look();
  }
  reached() ? loop.passOverTo({t}) : loop.advanceTo({t});
}

bool Stillness::reached() const {
  const SimulatedRunLoop& loop = widget_.host().loop;
  if (!loop.nextDueDate()) return true;  // no timers before the controller has loaded
  const auto period = loop.period();
  // Twice as long as it takes for each to fire, as dates are rounded.
  return state_ && period && loop.now().timeIntervalSinceReferenceDate - since_ > 2 * *period;
}

void Stillness::look() {
  State found(widget_);
  if (state_ == found) return;
  state_ = std::move(found);
  since_ = widget_.host().loop.now().timeIntervalSinceReferenceDate;
}

}  // namespace wayfell
