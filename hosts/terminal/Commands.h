// The commands of wayfell, as its command line has them. Each brings what it runs.
#pragma once

#include "hosts/commandline/CommandLine.h"

namespace wayfell {

Command todayOptions();
Command replayOptions();
Command settingsOptions();
Command waypointOptions();
Command trackOptions();
Command convertOptions();
Command distanceOptions();
Command datumsOptions();
Command addressesOptions();

/// For commands whose results are lines of JSON.
Option jsonOption(bool& json);

}  // namespace wayfell
