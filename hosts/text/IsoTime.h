// Times of day as ISO 8601 writes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/NSDate.h"

namespace wayfell {

/// "2010-10-04T05:13:19Z", with any fraction of a second, and "+02:00", "+0200" or "+02" and the
/// like in place of "Z"; without any it is UTC. A blank may stand for the "T". A leap second is the
/// second after it. None for anything else, dates that no calendar has included.
std::optional<NSDate> dateOfIsoTime(std::string_view text);

/// The other way, in UTC and to the millisecond: "2010-10-04T05:13:19.5Z". Years have four digits;
/// empty beyond them.
std::string isoTimeOf(NSDate date);

}  // namespace wayfell
