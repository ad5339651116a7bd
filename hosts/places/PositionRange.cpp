#include "hosts/places/PositionRange.h"

#include <cmath>
#include <stdexcept>
#include <string>

#include "platform/NSString.h"

namespace wayfell {

bool isPosition(const CLLocationCoordinate2D& position) {
  return std::abs(position.latitude) <= kGreatestLatitude &&
         std::abs(position.longitude) <= kGreatestLongitude;
}

void checkDegrees(double degrees, double greatest, std::string_view name) {
  if (std::abs(degrees) <= greatest) return;
  throw std::invalid_argument(std::string(name) + ' ' + shortestText(degrees) + " is beyond " +
                              shortestText(std::copysign(greatest, degrees)));
}

}  // namespace wayfell
