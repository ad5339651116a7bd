// The program `wayfell-widget`: the panel in a window.
#pragma once

#include <optional>
#include <string>

#include "hosts/live/OpenSource.h"
#include "hosts/window/WidgetWindow.h"

namespace wayfell {

/// What the command line asks for.
struct WidgetCommand {
  SourceWishes source;
  WindowWishes window;
  std::string theme;                      ///< one of kThemes, or empty for the one kept
  std::optional<std::size_t> copyFormat;  ///< see kPositionFormats; none for the text shown
  std::optional<double> fontScale;        ///< none for the desktop's
  bool still = false;                     ///< nothing is to move, whatever the desktop has set
  std::string words;                      ///< the command line, as it was given
};

/// Shows the window until it is closed or a signal ends it. Throws InputError for what cannot be
/// read. Returns the status to exit with (see ExitStatus.h).
int runWidget(const Sources& sources, const WidgetCommand& command);

}  // namespace wayfell
