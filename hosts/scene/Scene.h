// What a host has on its screen: the widget, and what the host itself says of it. The terminal and
// the window show any.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "hosts/panel/PanelKeys.h"
#include "hosts/panel/PanelReading.h"

namespace wayfell {

class Scene {
 public:
  enum class Kind { live, replay, demo };
  /// The host's own lines. Nothing of them is part of the panel.
  struct Lines {
    Kind kind = Kind::live;
    std::string title;    ///< where what is shown comes from
    std::string state;    ///< how that goes
    std::string warning;  ///< what should not be taken for fresh
    std::string credit;   ///< whose data is shown, where they ask for it
    std::string note;     ///< what the datum's shift leaves out
    friend bool operator==(const Lines&, const Lines&) = default;
  };

  virtual ~Scene() = default;

  virtual const WidgetInterface& interface() const = 0;
  virtual bool onScreen() const = 0;

  /// What the user or the host does happens now: the scene has caught up before it.
  void appear();
  void disappear();
  /// Does what is asked for. What is not on the screen cannot be touched, and what is the host's
  /// own is left to it.
  void act(const PanelRequest& request);
  /// The program is about to be stopped, and then goes on; what should have happened meanwhile has
  /// not.
  virtual void suspend() {}
  virtual void resume() {}

  virtual Lines lines() const = 0;
  virtual Freshness freshness() const = 0;
  /// What keeps the scene from going on.
  virtual std::optional<std::string> fault() const = 0;
  /// What has happened that the user should hear of, once.
  virtual std::optional<std::string> takeNews() = 0;
  /// What can be done besides what every panel does, the most useful first.
  virtual std::span<const PanelAction> actions() const = 0;

  /// Draws its conclusions from what has happened; at the end of each turn of the run loop.
  virtual void settle() {}
  /// Brings the scene up to now.
  virtual void catchUp() {}

 protected:
  virtual void letAppear() = 0;
  virtual void letDisappear() = 0;
  /// One of actions(), or something that is not the scene's.
  virtual void actItself(const PanelRequest& request) = 0;
};

/// A word for it, in capitals: "LIVE".
std::string badgeText(Scene::Kind kind);

}  // namespace wayfell
