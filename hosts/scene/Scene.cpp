#include "hosts/scene/Scene.h"

#include "hosts/panel/PanelReading.h"
#include "platform/NSBundle.h"

namespace wayfell {

std::string badgeText(Scene::Kind kind) {
  switch (kind) {
    case Scene::Kind::live:
      return std::string(localized("LIVE"));
    case Scene::Kind::replay:
      return std::string(localized("REPLAY"));
    case Scene::Kind::demo:
      break;
  }
  return std::string(localized("DEMO"));
}

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

}  // namespace wayfell
