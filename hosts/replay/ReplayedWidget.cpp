#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

void write(KeyValueStore& store, const event::Settings& settings) {
  for (const auto& [key, value] : settings) store.set(key, value);
}

UIView& tappedView(const WidgetInterface& interface, event::Tap::View view) {
  switch (view) {
    case event::Tap::View::openLabel:
      return interface.views().openLabel;
    case event::Tap::View::openMiniLabel:
      return interface.views().openMiniLabel;
    case event::Tap::View::toggleViewButton:
      break;
  }
  return interface.views().toggleViewButton;
}

// What sets the scene and needs no widget.
bool setsTheScene(const Action& action) {
  return std::holds_alternative<event::WriteSuite>(action) ||
         std::holds_alternative<event::WriteLocal>(action) ||
         std::holds_alternative<event::Authorize>(action) ||
         std::holds_alternative<event::FollowCourse>(action) ||
         std::holds_alternative<event::AnswerLookups>(action);
}

}  // namespace

void ReplayedWidget::load() {
  controller_->viewDidLoad();
  loaded_ = true;
}

void ReplayedWidget::start() {
  if (loaded_) return;
  load();
  controller_->viewWillAppear(false);
}

void ReplayedWidget::apply(const Action& action) {
  if (!loaded_ && std::holds_alternative<event::Appear>(action)) load();
  if (!setsTheScene(action)) start();
  std::visit(
      Overloaded{
          [this](const event::WriteSuite& suite) { write(host_.suite, suite.settings); },
          [this](const event::WriteLocal& local) { write(host_.local, local.settings); },
          [this](const event::Authorize& authorize) { host_.location.status = authorize.status; },
          [this](const event::FollowCourse& follow) {
            interface_->views().compassRotatingView.setCompassDisplayCourse(follow.course);
          },
          [this](const event::AnswerLookups& answer) { host_.geocoder.answer = answer.placemark; },
          [this](const event::Appear&) { controller_->viewWillAppear(false); },
          [this](const event::Disappear&) { controller_->viewWillDisappear(false); },
          [this](const event::Locate& locate) { host_.location.deliver(locate.fixes); },
          [this](const event::Turn& turn) { host_.location.deliver(turn.heading); },
          [this](const event::Tap& tap) { tappedView(*interface_, tap.view).tap(); },
          [this](const event::PickSegment& pick) {
            interface_->views().coordinateControl.pick(pick.segment);
          },
          [this](const event::OpenAppWithCoordinate&) { controller_->openAppWithCoordinate(); },
          [this](const event::UpdateCurrentLocationDisplay& update) {
            controller_->updateCurrentLocationDisplayWithUnits(update.units);
          },
          [](const event::Show&) {},
      },
      action);
}

}  // namespace wayfell
