#include "hosts/services/stores/DamagedFile.h"

#include <fcntl.h>
#include <sys/file.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>
#include <system_error>

#include "hosts/services/stores/Descriptor.h"
#include "hosts/services/stores/StorePaths.h"

namespace wayfell {
namespace {

namespace fs = std::filesystem;

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

std::optional<fs::path> setAside(const fs::path& file, const FileMark& damaged) {
  // Two processes that find the damage at once take turns, so that the second one does not take
  // away the new file of the first. Where folders cannot be locked they may still be renamed in.
  const Descriptor folder(open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.get() >= 0) flock(folder.get(), LOCK_EX);

  if (!isStillAt(file, damaged)) return std::nullopt;
  const fs::path name = freeNameFor(file);
  // The file itself goes last: a new one must not find another's log beside it.
  for (const char* suffix : {"-wal", "-shm", ""}) {
    if (std::rename(beside(file, suffix).c_str(), beside(name, suffix).c_str()) != 0 &&
        errno != ENOENT) {
      throw std::system_error(errno, std::generic_category());
    }
  }
  return name;
}

}  // namespace wayfell
