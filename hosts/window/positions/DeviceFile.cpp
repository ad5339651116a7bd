#include "hosts/window/positions/DeviceFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "platform/NSBundle.h"

namespace wayfell {

// A receiver that talks without line ends is none; its bytes are not collected forever.
constexpr qsizetype kLongestLine = 65536;

std::unique_ptr<DeviceFile> DeviceFile::open(IoRunLoop& loop, const std::string& path,
                                             const Failed& failed) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descriptor < 0) {
    failed(std::strerror(errno));
    return nullptr;
  }
  std::unique_ptr<DeviceFile> device(new DeviceFile(loop, descriptor, failed));
  try {
    device->watch_ = loop.watch(descriptor, {.readable = true},
                                [each = device.get()](auto) { each->takeAvailable(); });
  } catch (const std::system_error&) {
    failed(textKey("not a device"));
    return nullptr;
  }
  return device;
}

DeviceFile::DeviceFile(IoRunLoop& loop, int descriptor, Failed failed)
    : loop_(loop), descriptor_(descriptor), failed_(std::move(failed)) {
  makeRaw();
  setOpenMode(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

DeviceFile::~DeviceFile() {
  loop_.unwatch(watch_);
  if (before_) tcsetattr(descriptor_, TCSANOW, &*before_);
  ::close(descriptor_);
}

// The speed stays. Above all nothing is echoed, which the receiver would take for commands.
void DeviceFile::makeRaw() {
  termios settings = {};
  if (tcgetattr(descriptor_, &settings) != 0) return;
  before_ = settings;
  cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  tcsetattr(descriptor_, TCSANOW, &settings);
}

void DeviceFile::takeAvailable() {
  std::array<char, 4096> bytes{};
  const ssize_t count = ::read(descriptor_, bytes.data(), bytes.size());
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) {
    const std::string reason = count == 0 ? textKey("it has ended") : std::strerror(errno);
    loop_.unwatch(std::exchange(watch_, 0));
    failed_(reason);
    return;
  }
  if (buffer_.size() > kLongestLine) buffer_.clear();
  buffer_.append(bytes.data(), count);
  emit readyRead();
}

qint64 DeviceFile::readData(char* data, qint64 size) {
  const qint64 count = std::min<qint64>(size, buffer_.size());
  std::memcpy(data, buffer_.constData(), static_cast<std::size_t>(count));
  buffer_.remove(0, count);
  return count;
}

qint64 DeviceFile::writeData(const char* /*data*/, qint64 /*size*/) { return -1; }

}  // namespace wayfell
