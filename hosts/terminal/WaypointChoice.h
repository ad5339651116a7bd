// The waypoint of a GPX file that a user names on the command line.
#pragma once

#include <optional>
#include <string>

#include "hosts/replay/GpxWaypoints.h"

namespace wayfell {

/// The one of this name or, without a name, the only one; "-" is standard input. None, and a
/// complaint that lists what there is to choose from, when the file has no such waypoint or
/// several.
std::optional<GpxWaypoint> chosenWaypoint(const std::string& file,
                                          const std::optional<std::string>& name);

}  // namespace wayfell
