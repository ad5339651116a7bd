// The waypoints of a GPX 1.0 or 1.1 file, in its order; tracks and routes are left aside.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/CLLocation.h"

namespace wayfell {

struct GpxWaypoint {
  std::size_t number = 0;  ///< in the file, from 1
  std::string name;        ///< without blanks around it; empty if it has none
  CLLocationCoordinate2D position;
};

/// Throws InputError for a text that is no GPX file, and for a waypoint without a position, whose
/// number it names.
std::vector<GpxWaypoint> waypointsOfGpx(const std::string& xml);

}  // namespace wayfell
