// XML files in whatever encoding they were written, as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// Whether a text begins as XML in UTF-16 or UTF-32 does, with a byte order mark or without.
bool isWideXml(std::string_view beginning);

/// A file's bytes in UTF-8, without a byte order mark. The encoding is told by the mark, by how the
/// first "<" is written, or by the XML declaration, and is UTF-8 without any of these. Throws
/// InputError for an encoding that the system does not know, and for bytes that are not in the
/// encoding, whose line it names.
std::string utf8OfXml(std::string bytes);

}  // namespace wayfell
