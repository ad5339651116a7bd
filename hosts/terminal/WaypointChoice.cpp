#include "hosts/terminal/WaypointChoice.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "hosts/places/PositionText.h"
#include "hosts/replay/GpxRecording.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/FoldedText.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/InputError.h"
#include "hosts/text/InputFile.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

using Waypoints = std::vector<GpxWaypoint>;

Waypoints waypointsIn(const std::string& file) {
  const InputFile open(file);
  Waypoints waypoints = waypointsOfGpx(
      InputBytes(bytesOfFile(open.descriptor())).readAll(GpxRecording::kLongestFile));
  if (waypoints.empty()) throw InputError("no waypoints in the GPX file");
  return waypoints;
}

Waypoints called(const Waypoints& waypoints, const std::string& name) {
  Waypoints found;
  std::copy_if(waypoints.begin(), waypoints.end(), std::back_inserter(found),
               [&name](const GpxWaypoint& waypoint) { return waypoint.name == name; });
  return found;
}

// Those whose names have the text in them, whatever the case and diacritics; all if none has.
Waypoints near(const Waypoints& waypoints, const std::string& name) {
  const std::string folded = foldedText(name);
  Waypoints found;
  std::copy_if(waypoints.begin(), waypoints.end(), std::back_inserter(found),
               [&folded](const GpxWaypoint& waypoint) {
                 return foldedText(waypoint.name).find(folded) != std::string::npos;
               });
  return found.empty() ? waypoints : found;
}

void listThem(const Waypoints& waypoints) {
  constexpr std::size_t kMost = 10;
  for (std::size_t i = 0; i < waypoints.size() && i < kMost; ++i) {
    const GpxWaypoint& waypoint = waypoints[i];
    complainMore("waypoint " + std::to_string(waypoint.number) + "  " +
                 plainPosition(waypoint.position) + "  " +
                 (waypoint.name.empty() ? "without a name" : inQuotes(waypoint.name)));
  }
  if (waypoints.size() > kMost) {
    complainMore("and " + std::to_string(waypoints.size() - kMost) + " more");
  }
}

}  // namespace

std::optional<GpxWaypoint> chosenWaypoint(const std::string& file,
                                          const std::optional<std::string>& name) {
  const std::string place = (file == "-" ? "standard input" : file) + ": ";
  try {
    const Waypoints waypoints = waypointsIn(file);
    const Waypoints found = name ? called(waypoints, *name) : waypoints;
    if (found.size() == 1) return found.front();
    if (!name) {
      complain(place + "say with --name which of these waypoints it is, or give its position");
    } else if (found.empty()) {
      complain(place + "no waypoint has the name " + inQuotes(*name) + "; there are");
    } else {
      complain(place + "several waypoints have the name " + inQuotes(*name) +
               "; give the position of one instead");
    }
    listThem(found.empty() ? near(waypoints, *name) : found);
  } catch (const InputError& error) {
    complain(place + error.what());
  }
  return std::nullopt;
}

}  // namespace wayfell
