// Which file stands at a path: whether it has been replaced, or changed, since it was looked at.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace wayfell {

/// Which file it is that stands at a path, and what its contents are likely to be.
struct FileMark {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970
  off_t logSize = 0;          ///< of the write-ahead log beside it; 0 without one
  bool isFile = true;         ///< and not a folder, a pipe ...

  friend bool operator==(const FileMark&, const FileMark&) = default;
};

/// None when there is no file, or none that can be seen.
std::optional<FileMark> markOf(const std::filesystem::path& file);
/// Whether the file that was marked still stands at the path, whatever its contents. Costs half as
/// much.
bool isStillAt(const std::filesystem::path& file, const FileMark& mark);

}  // namespace wayfell
