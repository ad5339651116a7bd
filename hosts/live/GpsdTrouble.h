// The words for a gpsd that delivers no fixes.
#pragma once

#include <string>

#include "hosts/services/location/GpsdSource.h"

namespace wayfell {

/// Empty while there are fixes, and while none are asked for.
std::string gpsdTrouble(const GpsdState& state);

}  // namespace wayfell
