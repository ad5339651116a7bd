// `wayfell replay`: plays a recording and prints what the widget shows. docs/replay.md is its
// manual.
#pragma once

#include <optional>

#include "hosts/replay/RecordingChoice.h"

namespace wayfell {

/// What the command line asks for.
struct ReplayCommand {
  RecordingChoice recording;
  FirstSettings settings;
  std::optional<double> every;  ///< seconds
  bool text = false;
};

/// Prints on standard output, errors and notes on standard error. Returns the status to exit with
/// (see ExitStatus.h).
int runReplay(const ReplayCommand& command);

}  // namespace wayfell
