// Whether there is a gpsd, for a program that decides at its start what to stand on.
#pragma once

#include "hosts/loop/HostRunLoop.h"
#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

/// Whether a gpsd says something there. Runs the loop until it is known, but not longer than so
/// many seconds; that nobody listens on the port is known at once.
bool gpsdAnswers(HostRunLoop& loop, const GpsdAddress& address, double longest = 0.3);

}  // namespace wayfell
