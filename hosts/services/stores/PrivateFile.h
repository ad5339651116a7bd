// Files that nobody but the user may read.
#pragma once

#include <filesystem>

namespace wayfell {

/// Makes the file, empty, and the folders that it takes, for the user alone whatever the umask. A
/// file and folders that are there stay as they are. Throws std::system_error.
void createPrivateFile(const std::filesystem::path& file);

}  // namespace wayfell
