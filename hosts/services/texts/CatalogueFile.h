// Looks a compiled catalogue (a gettext .mo file) over before gettext may open it: gettext maps the
// file and trusts every offset, count and hash in it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace wayfell {

/// The keys that the catalogue translates; of a plural the singular. Throws std::runtime_error with
/// the reason, without the path, for a file that cannot be read or in which something points
/// outside, loops, overlaps or is not UTF-8 by its header. The texts themselves are not judged.
std::vector<std::string> keysOfSoundCatalogue(const std::filesystem::path& file);

}  // namespace wayfell
