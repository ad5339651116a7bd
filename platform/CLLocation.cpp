#include "platform/CLLocation.h"

#include <cmath>

namespace wayfell {

double CLLocation::distanceFromLocation(const CLLocation& /*other*/) const { return std::nan(""); }

}  // namespace wayfell
