// What to say of the fix that the panel shows, so that nobody takes an old one for fresh.
#pragma once

#include <optional>
#include <string>

#include "platform/CLLocation.h"

namespace wayfell {

/// "no fix yet", "fix 12 s old", or nothing for a fix that is not older than 5 seconds.
std::string fixAgeText(const std::optional<CLLocation>& fix, NSDate now);

}  // namespace wayfell
