// Which degrees are those of a position.
#pragma once

#include <string_view>

#include "platform/CLLocation.h"

namespace wayfell {

// Degrees, north and south of the equator, east and west of Greenwich.
inline constexpr double kGreatestLatitude = 90;
inline constexpr double kGreatestLongitude = 180;

/// Whether both degrees are within these; not-a-number is not.
bool isPosition(const CLLocationCoordinate2D& position);

/// Throws std::invalid_argument, such as "latitude 90.5 is beyond 90", for degrees that are not
/// within the greatest ones to both sides.
void checkDegrees(double degrees, double greatest, std::string_view name);

}  // namespace wayfell
