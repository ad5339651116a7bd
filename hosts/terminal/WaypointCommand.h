// `wayfell waypoint`: sets, shows and clears the waypoint that the containing app shares with the
// widget.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct WaypointCommand {
  enum class Action { set, show, clear };

  Action action = Action::show;
  std::vector<std::string> position;  ///< to set: decimal degrees, latitude first; or else
  std::optional<std::string> gpx;     ///< a file with the waypoint; "-" is standard input
  std::optional<std::string> name;    ///< of the one in the file; unset: it has only one
  bool json = false;                  ///< of show
};

/// Prints on standard output, errors and notes on standard error. Returns the status to exit with
/// (see ExitStatus.h).
int runWaypoint(const WaypointCommand& command);

}  // namespace wayfell
