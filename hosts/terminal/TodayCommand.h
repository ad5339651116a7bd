// `wayfell today`: the live panel in a terminal, on a recording.
#pragma once

#include "hosts/replay/RecordingChoice.h"

namespace wayfell {

/// What the command line asks for.
struct TodayCommand {
  RecordingChoice recording;
  double rate = 1;  ///< see Playback
};

/// Shows the panel until the user quits or a signal ends it, which then ends the process. Where
/// there is no terminal to show it on, prints it once, as it stands at the first fix. Returns the
/// status to exit with (see Output.h).
int runToday(const TodayCommand& command);

}  // namespace wayfell
