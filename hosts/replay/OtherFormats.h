// Files that cannot be replayed as they are: told early, by name, and with what can be done.
#pragma once

#include <cstddef>
#include <string_view>

namespace wayfell {

/// How many bytes of a file its format is told by.
inline constexpr std::size_t kToldBy = 12;

/// Throws InputError for first bytes that no recording has; blanks may come first.
void refuseOtherFiles(std::string_view beginning);
/// Throws it only for formats that have a name. The reader is a command that takes what they are
/// unpacked to.
void refuseKnownFormats(std::string_view beginning, std::string_view reader);
/// Throws it for an XML document that is not GPX, by the name of its outermost element.
void expectGpx(std::string_view element);

}  // namespace wayfell
