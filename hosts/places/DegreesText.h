// Latitudes and longitudes as people write them.
//
//   46.98 7.94       46 58.8 7 56.4              46 58 48 7 56 24
//   46.98N 7.94E     46° 58.8' N, 7° 56.4' E     46°58'48" N 7°56'24" E
//   E7.94, N46.98    46d58.8m 7d56.4m            46:58:48 7:56:24
//
// A comma, a semicolon, a letter, a sign, a degree sign or the end of colons tells where the second
// coordinate begins; without them each has half of the numbers. The latitude is the first, unless
// letters say otherwise; both coordinates have one, or neither. Only the last number of a
// coordinate has a fraction. What could be read in two ways is refused.
//
// A comma between two digits is a decimal comma, unless the text has a point, or has no other comma
// or semicolon and an even number of groups of digits: "46,98 7,94" is 46.98 and 7.94, and "46 58,7
// 56" is 46 58 and 7 56. readPosition refuses "46,98" by itself, which may be either.
//
// An s is seconds after minutes that are marked with an m, and the south everywhere else.
#pragma once

#include "hosts/places/DegreesParts.h"
#include "hosts/text/TextScanner.h"
#include "platform/CLLocation.h"

namespace wayfell {

/// Takes all that is left. Throws std::invalid_argument, whose text says what is wrong.
CLLocationCoordinate2D takeDegrees(TextScanner& scanner, const HemisphereLetters& letters);

}  // namespace wayfell
