// The sources that only the window opens: GeoClue, and receivers that speak NMEA 0183.
#pragma once

#include "hosts/live/SourceChoice.h"

namespace wayfell {

/// "geoclue", "nmea=/dev/ttyUSB0" and "nmea=HOST:PORT" besides what all hosts have. What comes
/// after "nmea=" is a device when it has a slash in it.
Sources windowSources();

}  // namespace wayfell
