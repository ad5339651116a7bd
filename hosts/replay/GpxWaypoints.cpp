#include "hosts/replay/GpxWaypoints.h"

#include "hosts/replay/GpxElements.h"
#include "hosts/text/InputError.h"

namespace wayfell {

std::vector<GpxWaypoint> waypointsOfGpx(const std::string& xml) {
  pugi::xml_document document;
  std::vector<GpxWaypoint> waypoints;
  for (const auto& node : gpx::load(document, xml)) {
    if (gpx::localName(node) != "wpt") continue;
    const std::size_t number = waypoints.size() + 1;
    try {
      waypoints.push_back(
          {number, std::string(gpx::text(gpx::child(node, "name"))), gpx::coordinate(node)});
    } catch (const InputError& error) {
      throw InputError("waypoint " + std::to_string(number) + ": " + error.what());
    }
  }
  return waypoints;
}

}  // namespace wayfell
