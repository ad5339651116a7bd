// What `wayfell today` shows: the panel, and under it the program's own two lines. They tell what
// is playing and how far it has come, how old the last fix is, which URLs were asked for, and what
// did not fit; nothing of that is part of the panel.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/terminal/Panel.h"
#include "hosts/terminal/Playback.h"
#include "hosts/terminal/Player.h"
#include "hosts/terminal/Terminal.h"

namespace wayfell {

class TodayScreen {
 public:
  /// `badge` and `title` say what is playing.
  TodayScreen(Terminal& terminal, const Player& player, const Playback& playback, std::string badge,
              std::string title);

  /// Draws everything; the terminal writes what differs.
  void draw();
  /// Whether the program's own lines would differ if they were drawn now.
  bool linesHaveChanged() const;

  /// What a click there would touch.
  std::optional<Touch> touchAt(Click click) const;

  /// Something to tell until the next key.
  void tell(std::string message) { message_ = std::move(message); }
  void toggleKeys() { showsKeys_ = !showsKeys_; }
  bool showsKeys() const { return showsKeys_; }

 private:
  struct Lines {
    std::string playing;  // at the right of the first line
    std::string age;      // at the right of the second line
    friend bool operator==(const Lines&, const Lines&) = default;
  };
  Lines lines() const;
  std::string message(const Panel& panel, int columns) const;
  void drawPanel(const Panel& panel);
  void drawKeys(int row) const;
  void drawLines(int row, const Panel& panel) const;

  Terminal& terminal_;
  const Player& player_;
  const Playback& playback_;
  std::string badge_;
  std::string title_;
  std::string message_;
  bool showsKeys_ = false;
  Lines shownLines_;
  int left_ = 0;                // the panel's first column
  std::vector<PanelRow> rows_;  // what can be clicked on
};

}  // namespace wayfell
