// Lengths as people write them, with their units.
#pragma once

#include <string_view>

namespace wayfell {

/// Metres of "1.2km", "850 m", "3 mi", "2nm" (nautical miles) or "500ft", in either case. A number
/// without a unit may be anything, and only 0 is taken. Throws std::invalid_argument, whose text
/// says what is wrong, for anything else and for what is less than 0.
double metresOfText(std::string_view text);

}  // namespace wayfell
