// Spans of time as people tell them: in whole seconds, minutes, hours or days.
#pragma once

#include <string>

namespace wayfell {

/// The keys of a text that tells a span, one for each unit, with "%d" for the number.
struct SpanKeys {
  const char* seconds;
  const char* minutes;
  const char* hours;
  const char* days;
};

/// Hours up to two days, so that there are always several days.
std::string spanText(const SpanKeys& keys, double seconds);

}  // namespace wayfell
