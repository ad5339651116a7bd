// Looks a compiled catalogue (a gettext .mo file) over before gettext may open it: gettext maps the
// file and trusts every offset, count and hash in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

// Both throw std::runtime_error with the reason, without a path.

/// What is in the file. Throws for one that cannot be read or is larger than any catalogue.
std::string bytesOfCatalogue(const std::filesystem::path& file);

/// The keys that the catalogue translates; of a plural the singular. Throws when something in it
/// points outside, loops, overlaps or is not UTF-8 by its header. The texts are not judged.
std::vector<std::string> keysOfSoundCatalogue(std::string_view bytes);

}  // namespace wayfell
