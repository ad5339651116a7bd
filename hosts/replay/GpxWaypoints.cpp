#include "hosts/replay/GpxWaypoints.h"

#include <utility>

#include "hosts/replay/GpxElements.h"
#include "hosts/replay/OtherFormats.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

void add(const gpx::Document& document, const pugi::xml_node& node,
         std::vector<GpxWaypoint>& waypoints) {
  const auto position = gpx::coordinate(node);
  const char* const fault = !position                    ? "has no position"
                            : !gpx::isOnEarth(*position) ? "is not on Earth"
                                                         : nullptr;
  if (fault != nullptr) {
    throw InputError("line " + std::to_string(document.lineOf(node)) + ": the waypoint " + fault);
  }
  waypoints.push_back(
      {waypoints.size() + 1, std::string(gpx::text(gpx::child(node, "name"))), *position});
}

}  // namespace

std::vector<GpxWaypoint> waypointsOfGpx(std::string bytes) {
  refuseKnownFormats(bytes, "wayfell waypoint set --gpx -");
  const gpx::Document document(std::move(bytes));
  if (document.fault()) throw InputError(*document.fault());
  std::vector<GpxWaypoint> waypoints;
  for (const auto& node : document.root()) {
    if (gpx::localName(node) == "wpt") add(document, node, waypoints);
  }
  if (!waypoints.empty()) return waypoints;
  for (const auto& route : document.root()) {
    if (gpx::localName(route) != "rte") continue;
    for (const auto& node : route) {
      if (gpx::localName(node) == "rtept") add(document, node, waypoints);
    }
  }
  return waypoints;
}

}  // namespace wayfell
