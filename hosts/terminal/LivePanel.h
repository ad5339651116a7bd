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
#include "platform/UIView.h"

namespace wayfell {

/// Notices that some view of the panel has changed.
class ViewWatch : public UIViewObserver {
 public:
  explicit ViewWatch(const WidgetInterface& interface);
  ~ViewWatch() override;
  ViewWatch(const ViewWatch&) = delete;
  ViewWatch& operator=(const ViewWatch&) = delete;

  void viewDidChange(UIView& view) override;
  /// A terminal has no picture between the first and the last one.
  void viewDidAnimate(UIView& view, const UIViewAnimation& animation) override;

  /// Whether one has changed since this was asked last.
  bool takeChanged();

 private:
  const WidgetInterface& interface_;
  bool changed_ = false;
};

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
  void redraw();
  void showChanges();
  void tellOfURLs();
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
