// Texts for terminals that show ASCII only.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// A text of the same width, with letters that look alike ("d" for the degree sign) or "?".
std::string asciiText(std::string_view text);

}  // namespace wayfell
