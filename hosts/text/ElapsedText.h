// Spans of time for people.
#pragma once

#include <string>

namespace wayfell {

/// "0:05:00": hours, minutes and whole seconds.
std::string elapsedText(double seconds);

}  // namespace wayfell
