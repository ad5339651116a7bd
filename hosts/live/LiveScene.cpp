#include "hosts/live/LiveScene.h"

#include <utility>

#include "hosts/places/DatumNote.h"
#include "hosts/scene/FixWarning.h"
#include "platform/NSBundle.h"
#include "settings/UserDefaults.h"

namespace wayfell {

LiveScene::LiveScene(LiveHost& host, SourceStatus source, Now now)
    : host_(host), source_(std::move(source)), now_(std::move(now)) {
  letAppear();
}

void LiveScene::letAppear() {
  if (onScreen_) letDisappear();
  controller_ = std::make_shared<TodayViewController>();
  interface_.emplace(controller_);
  controller_->viewDidLoad();
  controller_->viewWillAppear(false);
  onScreen_ = true;
  handOverLastFix();
  settle();
}

// As it came: its course, too, turns the compass, and is as old as the fix.
void LiveScene::handOverLastFix() {
  followCourseOrCompass();
  if (lastFix_) controller_->locationManager().deliverLocations({*lastFix_});
  lastFix_ = controller_->currentLocation;
}

void LiveScene::letDisappear() {
  controller_->viewWillDisappear(false);
  host_.endTimers();
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
  // A compass may not know the true heading, where that is to be shown: then the panel has none.
  return !source_.deliversHeadings() || controller_->currentHeading < 0;
}

// Shows what the one that is followed from now on has told last, not the other's until it tells
// more.
void LiveScene::followCourseOrCompass() {
  CompassView& compass = interface_->views().compassRotatingView;
  const bool course = followsCourse();
  if (course == compass.compassDisplayCourse()) return;
  compass.setCompassDisplayCourse(course);
  constexpr double kUnknown = -1;                      // which is not shown
  const double heading = controller_->currentHeading;  // 0 before the first
  if (course) {
    controller_->setMapCompassDisplaysWithHeading(lastFix_ ? lastFix_->course : kUnknown);
  } else {
    controller_->setMapCompassDisplaysWithHeading(heading > 0 ? heading : kUnknown);
  }
}

void LiveScene::settle() {
  followCourseOrCompass();
  if (controller_->currentLocation != lastFix_) {
    lastFix_ = controller_->currentLocation;
    lastFixCame_ = now_();
  }
}

std::optional<double> LiveScene::fixAge() const {
  if (!lastFix_) return std::nullopt;
  return std::chrono::duration<double>(now_() - lastFixCame_).count();
}

Freshness LiveScene::freshness() const {
  // A fix without a course leaves the heading where it was.
  const bool hasCourse = lastFix_ && lastFix_->course >= 0;
  const auto age = fixAge();
  return {.fix = age && isFreshFix(*age),
          .heading = followsCourse() ? hasCourse : source_.deliversHeadings(),
          .moving = controller_->velocityManager().averageSpeed() > 0};
}

Scene::Lines LiveScene::lines() const {
  return {Kind::live,
          source_.name(),
          headingState(),
          onScreen_ ? fixWarning(*controller_, fixAge(), source_.trouble()) : "",
          host_.reverseGeocoder().attribution(),
          selectedDatumNote()};
}

std::string LiveScene::headingState() const {
  if (!onScreen_) return "";
  if (followsCourse()) return std::string(localized("course"));
  // True when neither is chosen and the true heading is known, which is nearly always.
  const bool magnetic = UserDefaults::checkIntDefaults("compassHeading") == 1;
  return std::string(magnetic ? localized("compass, magnetic") : localized("compass, true"));
}

std::optional<std::string> LiveScene::takeNews() { return std::exchange(news_, std::nullopt); }

void LiveScene::actItself(const PanelRequest& request) {
  if (request.action != PanelAction::chooseHeading) return;
  switch (headingChoice_) {
    case HeadingChoice::whatIsThere:
      headingChoice_ = followsCourse() ? HeadingChoice::compass : HeadingChoice::course;
      tell(std::string(followsCourse() ? localized("heading: the course, always")
                                       : localized("heading: the compass, always")));
      break;
    case HeadingChoice::compass:
    case HeadingChoice::course:
      headingChoice_ = HeadingChoice::whatIsThere;
      tell(std::string(localized("heading: the compass where there is one, else the course")));
      break;
  }
  settle();
}

}  // namespace wayfell
