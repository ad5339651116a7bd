// What to say of the fix that the panel shows, so that nobody takes an old one for fresh.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

inline constexpr std::string_view kNoFixYet = "no fix yet";

/// "fix 12 s old", or nothing for a fix that is not older than 5 seconds.
std::string fixAgeText(double seconds);

}  // namespace wayfell
