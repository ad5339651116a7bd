// The waypoints of a GPX 1.0 or 1.1 file, in its order, and then the points of its routes, each
// name at a place once; tracks are left aside.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/CLLocation.h"

namespace wayfell {

struct GpxWaypoint {
  std::size_t number = 0;  ///< in this order, from 1
  std::string name;        ///< without blanks around it; empty if it has none
  CLLocationCoordinate2D position;
};

/// Throws InputError for bytes that are no GPX file, and for a waypoint without a position, whose
/// line it names.
std::vector<GpxWaypoint> waypointsOfGpx(std::string bytes);

}  // namespace wayfell
