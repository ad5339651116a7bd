// What to say of the fix that the panel shows, so that nobody takes an old one for fresh.
#pragma once

#include <cmath>
#include <string>

#include "platform/NSString.h"

namespace wayfell {

inline constexpr const char* kNoFixYet = "no fix yet";
/// A fix that is no older needs no mention.
inline constexpr double kFreshSeconds = 5;

/// "fix 12 s old", or nothing for a fresh one.
inline std::string fixAgeText(double seconds) {
  return seconds > kFreshSeconds ? "fix " + shortestText(std::floor(seconds)) + " s old" : "";
}

}  // namespace wayfell
