// A span of time as clocks show it.
#pragma once

#include "platform/NSString.h"

namespace wayfell {

/// Each part of a negative span is negative or 0.
struct HoursMinutesSeconds {
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
};

constexpr HoursMinutesSeconds hoursMinutesSeconds(int seconds) {
  return {seconds / 3600, (seconds % 3600) / 60, seconds % 60};
}

/// Rounded to six decimals, then cut: 59.9999999 is 60. By way of text, so that what is not a
/// number, or infinite, becomes 0 and what is too large the largest integer.
inline int wholeSeconds(double seconds) { return intValue(fixedText(seconds, 6)); }

}  // namespace wayfell
