#include "hosts/scene/Scene.h"

#include <cmath>

#include "hosts/panel/PanelReading.h"
#include "platform/NSString.h"

namespace wayfell {

void Scene::appear() {
  catchUp();
  letAppear();
}

void Scene::disappear() {
  catchUp();
  letDisappear();
}

void Scene::act(const PanelRequest& request) {
  catchUp();
  PanelViews& views = interface().views();
  switch (request.action) {
    case PanelAction::pickFormat:
      if (onScreen()) views.coordinateControl.pick(request.number);
      break;
    case PanelAction::switchLayout:
      if (onScreen()) views.toggleViewButton.tap();
      break;
    case PanelAction::openApp:
      if (onScreen()) (isCompact(interface()) ? views.openMiniLabel : views.openLabel).tap();
      break;
    case PanelAction::showOrHide:
      onScreen() ? letDisappear() : letAppear();
      break;
    default:
      actItself(request);
  }
}

std::string Scene::fixAgeText(double seconds) {
  constexpr double kFresh = 5;  // seconds; a fix that is no older needs no mention
  return seconds > kFresh ? "fix " + shortestText(std::floor(seconds)) + " s old" : "";
}

}  // namespace wayfell
