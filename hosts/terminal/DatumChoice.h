// The datum that a user names on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// The catalogue's name of it. None, and a complaint that suggests others, when the catalogue
/// lacks it, has it for several regions, or cannot convert to it.
std::optional<std::string> chosenDatum(std::string_view name);

}  // namespace wayfell
