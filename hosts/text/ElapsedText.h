// Spans of time for people: "H:MM:SS".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// "0:05:00": hours, minutes and whole seconds.
std::string elapsedText(double seconds);

/// What people type for it, in seconds: "0:05:00", "5:00" or "300", with a fraction or without.
/// What stands behind a colon is less than 60. None for anything else.
std::optional<double> secondsOfElapsedText(std::string_view text);

}  // namespace wayfell
