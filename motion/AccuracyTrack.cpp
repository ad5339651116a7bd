#include "motion/AccuracyTrack.h"

#include <cstddef>

namespace wayfell {
namespace {

constexpr std::size_t kCapacity = 30;

}  // namespace

// The sums follow what comes and goes and are never added up afresh, so their rounding drifts a
// little on long runs.
void AccuracyTrack::addLocation(CLLocation location) {
  locations().insert(locations().begin(), location);
  if (locations().size() > kCapacity) {
    const CLLocation& oldest = locations().back();
    setHorizontalSum(horizontalSum() - oldest.horizontalAccuracy);
    setVerticalSum(verticalSum() - oldest.verticalAccuracy);
    locations().pop_back();
  }
  setHorizontalSum(horizontalSum() + location.horizontalAccuracy);
  setVerticalSum(verticalSum() + location.verticalAccuracy);
  const auto count = static_cast<double>(locations().size());
  setAverageHorizontalAccuracy(horizontalSum() / count);
  setAverageVerticalAccuracy(verticalSum() / count);
}

}  // namespace wayfell
