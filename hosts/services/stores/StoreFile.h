// The file of a store on the disk: which one stands at a path, how one is made, and how a damaged
// one is put aside.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace wayfell {

/// An open file, closed with its owner.
struct Descriptor {
  explicit Descriptor(int opened) : number(opened) {}
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  const int number;  // negative when it could not be opened
};

/// Which file it is that stands at a path, and what its contents are likely to be.
struct FileMark {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970
  off_t logSize = 0;          ///< of the write-ahead log beside it; 0 without one
  off_t journalSize = 0;      ///< of the rollback journal beside it; 0 without one
  bool isFile = true;         ///< and not a folder, a pipe ...

  friend bool operator==(const FileMark&, const FileMark&) = default;
};

/// None when there is no file, or none that can be seen.
std::optional<FileMark> markOf(const std::filesystem::path& file);
/// Whether the file that was marked still stands at the path, whatever its contents. Costs half as
/// much.
bool isStillAt(const std::filesystem::path& file, const FileMark& mark);

/// Where a symbolic link at the path leads that has nothing at its end; empty if there is none.
std::filesystem::path endOfDanglingLink(const std::filesystem::path& file);

/// Makes the file, empty, and the folders that it takes, for the user alone whatever the umask. A
/// file and folders that are there stay as they are. Throws std::system_error.
void createPrivateFile(const std::filesystem::path& file);

/// Renames a damaged database and the log or journal beside it to "NAME.corrupt-20251231T235959Z"
/// and returns the new path. None when the path is not that file's any more: another process was
/// faster. Throws std::system_error.
std::optional<std::filesystem::path> setAside(const std::filesystem::path& file,
                                              const FileMark& damaged);

}  // namespace wayfell
