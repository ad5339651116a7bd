// The compass tape: a strip of lettering that slides under a fixed mark.
#pragma once

#include <string_view>

#include "platform/UIGeometry.h"

namespace wayfell {

/// Points by which the tape moves to the left as the heading goes round once.
inline constexpr double kTapePointsPerTurn = 300;
/// Where it stands in its frame, and how large it is, in points.
inline constexpr double kTapeTop = -3.0;
inline constexpr CGSize kTapeSize{430.0, 26.0};

/// Its lettering, in degrees or mils.
std::string_view compassTape(bool mils);

}  // namespace wayfell
