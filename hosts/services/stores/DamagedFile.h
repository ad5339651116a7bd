// What becomes of a damaged database: it is kept under another name.
#pragma once

#include <filesystem>
#include <optional>

#include "hosts/services/stores/FileMark.h"

namespace wayfell {

/// Renames a damaged database and the log beside it to "NAME.corrupt-20251231T235959Z" and returns
/// the new path. None when the path is not that file's any more: another process was faster.
/// Throws std::system_error.
std::optional<std::filesystem::path> setAside(const std::filesystem::path& file,
                                              const FileMark& damaged);

}  // namespace wayfell
