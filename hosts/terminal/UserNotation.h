// How the user of a command writes positions.
#pragma once

#include "hosts/places/PositionReader.h"

namespace wayfell {

inline constexpr const char* kPositionHelp = "In degrees, as UTM or MGRS, or a geo: URI";

/// With the hemisphere letters that a panel prints in the user's language.
PositionNotation userNotation();

}  // namespace wayfell
