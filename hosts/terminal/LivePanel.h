// The panel on a terminal while a recording plays: what the user types and clicks, and when what is
// played and drawn.
#pragma once

#include <optional>
#include <string>

#include "hosts/terminal/EventLoop.h"
#include "hosts/terminal/Playback.h"
#include "hosts/terminal/Player.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TodayScreen.h"
#include "hosts/terminal/ViewWatch.h"

namespace wayfell {

class LivePanel {
 public:
  /// What is given must live on. `badge` and `title` say what is playing.
  LivePanel(EventLoop& loop, Terminal& terminal, Player& player, double rate, std::string badge,
            std::string title);

  /// Something to tell until the first key.
  void tell(std::string message) { screen_.tell(std::move(message)); }
  /// Until the user quits, the loop is stopped, or the terminal is gone.
  void run();

 private:
  void goOn();
  bool tellOfURLs();
  void redraw();
  void takeInput();
  void press(char32_t key);
  void touch(const std::optional<Touch>& touch);
  void resize();
  void stopForNow();
  void resume();

  EventLoop& loop_;
  Terminal& terminal_;
  Player& player_;
  Playback playback_;
  ViewWatch watch_;
  TodayScreen screen_;
  int urls_ = 0;  // asked for so far
};

}  // namespace wayfell
