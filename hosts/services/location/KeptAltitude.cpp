#include "hosts/services/location/KeptAltitude.h"

#include <cmath>

#include "hosts/services/location/FixQuality.h"

namespace wayfell {
namespace {

// Two reports of a receiver that saves power and reports every five seconds. Whoever walks uphill
// has climbed some 3 m by then, less than what altitudes are usually off.
constexpr double kLongest = 10;  // seconds

// Above mean sea level, above the ellipsoid alone, none.
int worth(const CLLocation& fix) {
  return static_cast<int>(hasAltitude(fix)) + static_cast<int>(fix.verticalAccuracy >= 0);
}

}  // namespace

CLLocation KeptAltitude::completed(CLLocation fix) {
  const bool isKept =
      best_ && std::abs(fix.timestamp.timeIntervalSinceDate(best_->timestamp)) <= kLongest;
  if (isKept && worth(fix) < worth(*best_)) {
    fix.altitude = best_->altitude;
  } else {
    best_ = fix;
  }
  return fix;
}

}  // namespace wayfell
