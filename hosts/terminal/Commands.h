// The commands of wayfell: what the command line has of each, and what it runs.
#pragma once

#include "hosts/commandline/CommandLine.h"

namespace wayfell {

Command todayCommand();
Command replayCommand();
Command settingsCommand();
Command waypointCommand();
Command trackCommand();
Command convertCommand();
Command distanceCommand();
Command datumsCommand();
Command addressesCommand();
// Those of addresses.
Command addressImportCommand();
Command addressFindCommand();

/// For commands whose results are lines of JSON.
inline Option jsonOption(bool& json) { return {"--json", "Print one JSON object a line", &json}; }

}  // namespace wayfell
