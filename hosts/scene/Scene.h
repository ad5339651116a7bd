// What a host has on its screen: the widget, and what the host itself says of it. The terminal and
// the window show any.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

class Scene {
 public:
  struct Key {
    std::string_view keys;
    std::string_view does;
  };
  /// The host's own lines. Nothing of them is part of the panel.
  struct Lines {
    std::string badge;    ///< a word: what kind of scene it is
    std::string title;    ///< where what is shown comes from
    std::string state;    ///< how that goes
    std::string warning;  ///< what should not be taken for fresh
    std::string credit;   ///< whose data is shown, where they ask for it
    friend bool operator==(const Lines&, const Lines&) = default;
  };

  virtual ~Scene() = default;

  virtual const WidgetInterface& interface() const = 0;
  virtual bool onScreen() const = 0;
  virtual void appear() = 0;
  virtual void disappear() = 0;
  /// The user taps a view, or picks a format. Only what is on the screen can be touched.
  virtual void tap(std::string_view view) = 0;
  virtual void pickSegment(int segment) = 0;

  virtual Lines lines() const = 0;
  /// What keeps the scene from going on.
  virtual std::optional<std::string> fault() const = 0;
  /// What has happened that the user should hear of, once.
  virtual std::optional<std::string> takeNews() = 0;

  /// Keys besides those of the panel, and what shows how to get on: the longest hint that fits.
  virtual std::vector<Key> keys() const = 0;
  virtual std::vector<std::string_view> hints() const = 0;
  virtual void press(char32_t key) = 0;

  /// Brings the scene up to now, before something else happens to it.
  virtual void catchUp() = 0;
  /// The program goes on after it was stopped; what should have happened meanwhile has not.
  virtual void resume() = 0;
  /// Draws its conclusions from what has happened; at the end of each turn of the run loop.
  virtual void settle() {}
};

}  // namespace wayfell
