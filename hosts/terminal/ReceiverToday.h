// The panel in a terminal, on a receiver.
#pragma once

#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

/// Shows the panel until the user quits, or prints it once where there is no terminal to show it
/// on; see runToday.
int runTodayOnReceiver(const GpsdAddress& address);

}  // namespace wayfell
