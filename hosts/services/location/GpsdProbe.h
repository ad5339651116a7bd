// Whether there is a gpsd, for a program that decides at its start what to stand on.
#pragma once

#include <chrono>

#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

/// Whether a gpsd tells its version there. Blocks for as long at most, the lookup of a name left
/// aside; a port that nobody listens on, and another service's words, are told at once.
bool gpsdAnswers(const GpsdAddress& address,
                 std::chrono::milliseconds longest = std::chrono::milliseconds(300));

}  // namespace wayfell
