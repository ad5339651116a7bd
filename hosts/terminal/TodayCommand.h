// `wayfell today`: the panel in a terminal, on a receiver or on a recording.
#pragma once

#include <optional>

#include "hosts/replay/RecordingChoice.h"
#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

/// What the command line asks for.
struct TodayCommand {
  RecordingChoice recording;        ///< none: a receiver, or the demo where there is no gpsd
  std::optional<GpsdAddress> gpsd;  ///< this one, whether or not it answers
  double rate = 1;                  ///< of a recording; see Playback
};

/// Shows the panel until the user quits or a signal ends it, which then ends the process. Where
/// there is no terminal to show it on, prints it once, as it stands at the first fix. Returns the
/// status to exit with (see Output.h).
int runToday(const TodayCommand& command);

}  // namespace wayfell
