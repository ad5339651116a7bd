// A scene on a terminal: what the user types and clicks, and when it is drawn anew.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/panel/ViewWatch.h"
#include "hosts/scene/Scene.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TodayScreen.h"

namespace wayfell {

class LivePanel {
 public:
  /// What is given must live on.
  LivePanel(EventLoop& loop, Terminal& terminal, Scene& scene);

  /// Something to tell until the first key.
  void tell(std::string message) { screen_.tell(std::move(message)); }
  /// Until the user quits, the loop is stopped, or the terminal is gone.
  void run();

 private:
  void showChanges();
  void redraw();
  void takeInput();
  void press(char32_t key);
  void act(const std::optional<PanelRequest>& request);
  void resize();
  void stopForNow();
  void resume();

  EventLoop& loop_;
  Terminal& terminal_;
  Scene& scene_;
  ViewWatch watch_;
  TodayScreen screen_;
};

}  // namespace wayfell
