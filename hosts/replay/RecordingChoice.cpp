#include "hosts/replay/RecordingChoice.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <utility>

#include "hosts/replay/Demo.h"
#include "hosts/replay/Settings.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

constexpr std::size_t kLongestInput = std::size_t{1} << 30U;  // bytes, where it is held in memory

}  // namespace

std::string RecordingChoice::name() const {
  if (demo) return "the demo";
  return file == "-" ? "standard input" : file;
}

void RecordingChoice::applySettings(ReplayedWidget& widget) const {
  for (const std::string& text : suite) {
    try {
      widget.apply(event::WriteSuite{settingOfText(text)});
    } catch (const InputError& error) {
      throw InputError(std::string("--suite: ") + error.what());
    }
  }
  for (const std::string& text : local) {
    try {
      event::WriteLocal write{settingOfText(text)};
      makeAddressDate(write.settings);
      widget.apply(write);
    } catch (const InputError& error) {
      throw InputError(std::string("--local: ") + error.what());
    }
  }
}

OpenFile::OpenFile(const std::string& path)
    : descriptor_(path == "-" ? STDIN_FILENO
                              : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY)) {
  if (descriptor_ < 0) throw InputError(std::string("cannot be opened: ") + std::strerror(errno));
}

OpenFile::~OpenFile() {
  if (descriptor_ != STDIN_FILENO) close(descriptor_);
}

bool OpenFile::isOnDisk() const {
  struct stat status = {};
  return fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
}

ChosenRecording::ChosenRecording(const RecordingChoice& choice, Slow slow) {
  ByteSource bytes;
  if (choice.demo) {
    bytes = demoBytes();
  } else {
    file_.emplace(choice.file);
    bytes = bytesOfFile(file_->descriptor());
  }
  if (file_ && slow == Slow::readAll && !file_->isOnDisk()) {
    text_ = InputBytes(std::move(bytes)).readAll(kLongestInput);
    bytes = bytesOfText(text_);
  }
  recording_ = openRecording(InputBytes(std::move(bytes)));
}

}  // namespace wayfell
