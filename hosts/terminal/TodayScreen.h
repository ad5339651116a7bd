// What `wayfell today` shows: the panel, and under it the program's own lines. They tell what
// the scene says of itself, and what did not fit; nothing of that is part of the panel.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/scene/Scene.h"
#include "hosts/terminal/PanelComposer.h"
#include "hosts/terminal/Terminal.h"

namespace wayfell {

class TodayScreen {
 public:
  TodayScreen(Terminal& terminal, const Scene& scene) : terminal_(terminal), scene_(scene) {}

  /// Draws everything; the terminal writes what differs.
  void draw();
  /// Whether the program's own lines would differ if they were drawn now.
  bool linesHaveChanged() const;

  /// What a click there asks for.
  std::optional<PanelRequest> requestAt(Click click) const;

  /// Something to tell until the next key.
  void tell(std::string message);
  void toggleKeys() { showsKeys_ = !showsKeys_; }
  bool showsKeys() const { return showsKeys_; }

 private:
  std::string message(const ComposedPanel& panel, int columns) const;
  void drawPanel(const ComposedPanel& panel);
  int drawKeys(const ComposedPanel& panel, int mostRows) const;
  void drawLines(int row, const ComposedPanel& panel) const;

  Terminal& terminal_;
  const Scene& scene_;
  std::string message_;
  std::string lastMessage_;
  bool showsKeys_ = false;
  Scene::Lines shownLines_;
  int left_ = 0;               // the panel's first column
  std::vector<TextRow> rows_;  // what can be clicked on
};

}  // namespace wayfell
