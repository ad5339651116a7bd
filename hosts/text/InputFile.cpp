#include "hosts/text/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "hosts/text/InputError.h"

namespace wayfell {

InputFile::InputFile(const std::string& path)
    : descriptor_(path == "-" ? STDIN_FILENO
                              : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY)) {
  if (descriptor_ < 0) throw InputError(std::string("cannot be opened: ") + std::strerror(errno));
}

InputFile::~InputFile() {
  if (descriptor_ != STDIN_FILENO) close(descriptor_);
}

bool InputFile::isOnDisk() const {
  struct stat status = {};
  return fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace wayfell
