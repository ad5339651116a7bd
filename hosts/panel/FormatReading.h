// Reads back what a format has printed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

/// What stands in the text for each conversion of the format (`%d`, `%f` and `%@`), in the order of
/// the text; none when the format cannot have printed the text. For `%d` and `%f` only digits,
/// signs and points are taken, and whole numbers lose their leading zeros.
std::optional<std::vector<std::string>> readByFormat(std::string_view text,
                                                     std::string_view format);

}  // namespace wayfell
