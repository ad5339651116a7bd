#include "hosts/live/LiveScene.h"

#include <utility>

#include "hosts/scene/FixAge.h"
#include "settings/UserDefaults.h"

namespace wayfell {

LiveScene::LiveScene(LiveHost& host, SourceStatus source, Now now)
    : host_(host), source_(std::move(source)), now_(std::move(now)) {
  controller_->viewDidLoad();
  appear();
}

void LiveScene::letAppear() {
  controller_->viewWillAppear(false);
  onScreen_ = true;
  settle();
}

void LiveScene::letDisappear() {
  controller_->viewWillDisappear(false);
  onScreen_ = false;
}

bool LiveScene::followsCourse() const {
  switch (headingChoice_) {
    case HeadingChoice::compass:
      return false;
    case HeadingChoice::course:
      return true;
    case HeadingChoice::whatIsThere:
      break;
  }
  return !source_.deliversHeadings();
}

void LiveScene::settle() {
  interface_.views().compassRotatingView.setCompassDisplayCourse(followsCourse());
  if (controller_->currentLocation != lastFix_) {
    lastFix_ = controller_->currentLocation;
    lastFixCame_ = now_();
  }
}

double LiveScene::fixAge() const {
  return std::chrono::duration<double>(now_() - lastFixCame_).count();
}

Freshness LiveScene::freshness() const {
  return {.fix = lastFix_ && isFreshFix(fixAge()),
          .heading = followsCourse() || source_.deliversHeadings()};
}

std::string LiveScene::warning() const {
  if (!onScreen_) return "";
  const std::string trouble = source_.trouble();
  if (!lastFix_) return trouble.empty() ? noFixText() : trouble;
  const std::string old = fixAgeText(fixAge());
  // The age first, which is never cut off.
  if (trouble.empty() || old.empty()) return old + trouble;
  return old + ", " + trouble;
}

Scene::Lines LiveScene::lines() const {
  Lines lines{"LIVE", source_.name(), "course", warning(), host_.reverseGeocoder().attribution()};
  if (!followsCourse()) {
    // True when neither is chosen and the true heading is known, which is nearly always.
    lines.state = UserDefaults::checkIntDefaults("compassHeading") == 1 ? "compass, magnetic"
                                                                        : "compass, true";
  }
  return lines;
}

std::optional<std::string> LiveScene::takeNews() { return std::exchange(news_, std::nullopt); }

void LiveScene::actItself(const PanelRequest& request) {
  if (request.action != PanelAction::chooseHeading) return;
  switch (headingChoice_) {
    case HeadingChoice::whatIsThere:
      headingChoice_ = followsCourse() ? HeadingChoice::compass : HeadingChoice::course;
      tell(followsCourse() ? "heading: the course, always" : "heading: the compass, always");
      break;
    case HeadingChoice::compass:
    case HeadingChoice::course:
      headingChoice_ = HeadingChoice::whatIsThere;
      tell("heading: the compass where there is one, else the course");
      break;
  }
  settle();
}

}  // namespace wayfell
