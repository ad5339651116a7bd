#include "hosts/services/stores/PrivateFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "hosts/services/stores/Descriptor.h"

namespace wayfell {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kUserOnlyFile = 0600;
constexpr mode_t kUserOnlyFolder = 0700;

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

void createFolders(const fs::path& folder) {
  if (folder.empty() || fs::is_directory(folder)) return;
  createFolders(folder.parent_path());
  if (mkdir(folder.c_str(), kUserOnlyFolder) == 0) {
    if (chmod(folder.c_str(), kUserOnlyFolder) != 0) fail();
  } else if (errno != EEXIST) {
    fail();
  }
}

}  // namespace

void createPrivateFile(const fs::path& file) {
  createFolders(file.parent_path());
  // Exclusively, since closing a descriptor of a database that is open gives up SQLite's locks.
  const Descriptor made(open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUserOnlyFile));
  if (made.get() < 0) {
    if (errno != EEXIST) fail();
  } else if (fchmod(made.get(), kUserOnlyFile) != 0) {
    fail();
  }
}

}  // namespace wayfell
