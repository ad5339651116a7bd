// What `wayfell today` shows, and what the user types and clicks there: the panel, and under it the
// program's own lines. They tell what the scene says of itself, and what did not fit; nothing of
// that is part of the panel.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/scene/Scene.h"
#include "hosts/scene/ViewWatch.h"
#include "hosts/terminal/PanelComposer.h"
#include "hosts/terminal/Terminal.h"

namespace wayfell {

class TodayScreen {
 public:
  /// What is given must live on.
  TodayScreen(EventLoop& loop, Terminal& terminal, Scene& scene);

  /// Something to tell until the next key.
  void tell(std::string message);
  /// Until the user quits, the loop is stopped, or the terminal is gone.
  void run();

 private:
  void takeInput();
  void act(const std::optional<PanelRequest>& request);
  std::optional<PanelRequest> requestAt(Click click) const;
  void showChanges();
  void stopForNow();
  void resume();

  /// Draws everything; the terminal writes what differs.
  void draw();
  void compose();
  std::string message(const ComposedPanel& panel) const;

  EventLoop& loop_;
  Terminal& terminal_;
  Scene& scene_;
  ViewWatch watch_;
  std::string message_;
  std::string lastMessage_;
  bool showsKeys_ = false;
  Scene::Lines shownLines_;
  Freshness shownFreshness_;
  int left_ = 0;               // the panel's first column
  std::vector<TextRow> rows_;  // shown, and what can be clicked on
};

}  // namespace wayfell
