#include "hosts/services/stores/FileMark.h"

#include <sys/stat.h>

#include "hosts/services/stores/StorePaths.h"

namespace wayfell {

std::optional<FileMark> markOf(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  struct stat log {};
  const bool hasLog = stat(beside(file, "-wal").c_str(), &log) == 0;
  const std::int64_t seconds = status.st_mtim.tv_sec;
  return FileMark{status.st_dev,
                  status.st_ino,
                  status.st_size,
                  seconds * 1'000'000'000 + status.st_mtim.tv_nsec,
                  hasLog ? log.st_size : 0,
                  S_ISREG(status.st_mode)};
}

bool isStillAt(const std::filesystem::path& file, const FileMark& mark) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 && status.st_dev == mark.device &&
         status.st_ino == mark.inode;
}

}  // namespace wayfell
