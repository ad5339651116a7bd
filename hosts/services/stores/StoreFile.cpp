#include "hosts/services/stores/StoreFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>
#include <system_error>

namespace wayfell {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kUserOnlyFile = 0600;
constexpr mode_t kUserOnlyFolder = 0700;

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

// SQLite has files beside a database whose names go on with "-journal", "-wal" and "-shm".
fs::path beside(const fs::path& file, std::string_view suffix) {
  return file.string().append(suffix);
}

off_t sizeOf(const fs::path& file) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 ? status.st_size : 0;
}

void createFolders(const fs::path& folder) {
  if (folder.empty() || fs::is_directory(folder)) return;
  createFolders(folder.parent_path());
  if (mkdir(folder.c_str(), kUserOnlyFolder) == 0) {
    if (chmod(folder.c_str(), kUserOnlyFolder) != 0) fail();
  } else if (errno != EEXIST) {
    fail();
  }
}

std::string nowInUtc() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  std::array<char, 32> text{};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts);
  return {text.data(), size};
}

fs::path freeNameFor(const fs::path& file) {
  const std::string suffix = ".corrupt-" + nowInUtc();
  fs::path name = beside(file, suffix);
  for (int i = 2; fs::exists(name); ++i) name = beside(file, suffix + '-' + std::to_string(i));
  return name;
}

}  // namespace

std::optional<FileMark> markOf(const fs::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  const std::int64_t seconds = status.st_mtim.tv_sec;
  return FileMark{status.st_dev,
                  status.st_ino,
                  status.st_size,
                  seconds * 1'000'000'000 + status.st_mtim.tv_nsec,
                  sizeOf(beside(file, "-wal")),
                  sizeOf(beside(file, "-journal")),
                  S_ISREG(status.st_mode)};
}

bool isStillAt(const fs::path& file, const FileMark& mark) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 && status.st_dev == mark.device &&
         status.st_ino == mark.inode;
}

fs::path endOfDanglingLink(const fs::path& file) {
  constexpr int kMostLinks = 40;  // as many as the system follows
  std::error_code error;
  fs::path end = file;
  for (int i = 0; i < kMostLinks && fs::is_symlink(end, error); ++i) {
    end = (end.parent_path() / fs::read_symlink(end, error)).lexically_normal();
  }
  return end == file || fs::exists(end, error) ? fs::path() : end;
}

void createPrivateFile(const fs::path& file) {
  createFolders(file.parent_path());
  // Exclusively, since closing a descriptor of a database that is open gives up SQLite's locks.
  const Descriptor made(open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUserOnlyFile));
  if (made.number < 0) {
    if (errno != EEXIST) fail();
  } else if (fchmod(made.number, kUserOnlyFile) != 0) {
    fail();
  }
}

std::optional<fs::path> setAside(const fs::path& file, const FileMark& damaged) {
  // Two processes that find the damage at once take turns, so that the second one does not take
  // away the new file of the first. Where folders cannot be locked they may still be renamed in.
  const Descriptor folder(open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.number >= 0) flock(folder.number, LOCK_EX);

  if (!isStillAt(file, damaged)) return std::nullopt;
  const fs::path name = freeNameFor(file);
  // The file itself goes last: a new one must not find another's log or journal beside
  // it.
  for (const char* suffix : {"-journal", "-wal", "-shm", ""}) {
    if (std::rename(beside(file, suffix).c_str(), beside(name, suffix).c_str()) != 0 &&
        errno != ENOENT) {
      fail();
    }
  }
  return name;
}

}  // namespace wayfell
