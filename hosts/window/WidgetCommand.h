// The program `wayfell-widget`: the panel in a window.
#pragma once

#include <optional>
#include <string>

#include "hosts/window/Stage.h"
#include "hosts/window/WidgetWindow.h"

namespace wayfell {

inline constexpr int kDone = 0;
inline constexpr int kBadInput = 1;
inline constexpr int kBadUsage = 2;

/// What the command line asks for.
struct WidgetCommand {
  StageWishes stage;
  WindowWishes window;
  std::string theme;                      ///< one of kThemes, or empty for the one kept
  std::optional<std::size_t> copyFormat;  ///< see kPositionFormats; none for the text shown
  std::optional<double> fontScale;        ///< none for the desktop's
  bool still = false;                     ///< nothing is to move
};

/// "wayfell-widget: " and the text, on standard error.
void complain(const std::string& what);

/// Shows the window until it is closed or a signal ends it. Returns the status to exit with.
int runWidget(const WidgetCommand& command);

}  // namespace wayfell
