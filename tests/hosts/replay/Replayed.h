// Recordings written into the tests, and what comes of them.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/replay/Event.h"

namespace wayfell {

/// The snapshots, the last of which is the end's, as they are written. Throws InputError.
std::vector<std::string> replayedLines(std::string_view recording,
                                       std::optional<double> every = std::nullopt);
/// Likewise, for reading.
std::vector<nlohmann::json> replayed(std::string_view recording,
                                     std::optional<double> every = std::nullopt);
/// The end's snapshot.
nlohmann::json lastOf(std::string_view recording);
/// What is wrong with a recording, or "" when nothing is.
std::string complaintAbout(std::string_view recording);

std::vector<Event> eventsOf(std::string_view recording);
/// What a recording that has nothing but fixes says of them.
std::vector<CLLocation> fixesOf(std::string_view recording);

}  // namespace wayfell
