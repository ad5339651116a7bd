// `wayfell distance`: distance and bearing between two positions, or where a bearing and a distance
// lead from one, on the system's sphere.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct DistanceCommand {
  std::vector<std::string> input;  ///< two positions; one with a bearing and a distance
  std::optional<double> bearing;   ///< degrees
  std::optional<double> distance;  ///< metres; with a bearing only
  int units = 1;                   ///< 0 imperial, 1 metric, 2 nautical
  bool mils = false;               ///< of bearings that are shown
  bool json = false;
};

/// Prints on standard output, errors on standard error. Returns the status to exit with (see
/// Output.h).
int runDistance(const DistanceCommand& command);

}  // namespace wayfell
