// `wayfell track`: publishes the figures of the track that is being recorded, as the containing app
// does.
#pragma once

#include <string>

namespace wayfell {

/// What the command line asks for.
struct TrackCommand {
  enum class Action { publish, clear };

  Action action = Action::publish;
  std::string distance;  ///< metres, or with a unit: "1.2km", "800 m", "3mi", "2nm", "500ft"
  std::string time;      ///< see secondsOfElapsedText
};

/// Errors go to standard error. Returns the status to exit with (see ExitStatus.h).
int runTrack(const TrackCommand& command);

}  // namespace wayfell
