#include "hosts/replay/GpxWaypoints.h"

#include <set>
#include <tuple>
#include <utility>

#include "hosts/replay/GpxElements.h"
#include "hosts/replay/OtherFormats.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

class Collector {
 public:
  explicit Collector(const gpx::Document& document) : document_(document) {}

  void addEach(const pugi::xml_node& parent, std::string_view name) {
    for (const auto& node : parent) {
      if (gpx::localName(node) == name) add(node);
    }
  }

  std::vector<GpxWaypoint> waypoints() && { return std::move(waypoints_); }

 private:
  void add(const pugi::xml_node& node) {
    const auto position = gpx::coordinate(node);
    const char* const fault = !position                    ? "has no position"
                              : !gpx::isOnEarth(*position) ? "is not on Earth"
                                                           : nullptr;
    if (fault != nullptr) {
      throw InputError("line " + std::to_string(document_.lineOf(node)) + ": the waypoint " +
                       fault);
    }
    std::string name(gpx::text(gpx::child(node, "name")));
    // Routes often pass over a file's waypoints, and end where they began.
    if (!seen_.emplace(name, position->latitude, position->longitude).second) return;
    waypoints_.push_back({waypoints_.size() + 1, std::move(name), *position});
  }

  const gpx::Document& document_;
  std::vector<GpxWaypoint> waypoints_;
  std::set<std::tuple<std::string, double, double>> seen_;
};

}  // namespace

std::vector<GpxWaypoint> waypointsOfGpx(std::string bytes) {
  refuseKnownFormats(bytes, "wayfell waypoint set --gpx -");
  const gpx::Document document(std::move(bytes));
  if (document.fault()) throw InputError(*document.fault());
  Collector collector(document);
  collector.addEach(document.root(), "wpt");
  for (const auto& route : document.root()) {
    if (gpx::localName(route) == "rte") collector.addEach(route, "rtept");
  }
  return std::move(collector).waypoints();
}

}  // namespace wayfell
