#include "hosts/services/addresses/RequestTurns.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/NSString.h"

namespace wayfell {
namespace {

// Who has more than this before them has read a clock that was set back since.
constexpr double kLongest = 2 * 86400;  // seconds

double unixTime() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

// The file, for this program alone as long as this lives.
class LockedTime {
 public:
  explicit LockedTime(const std::filesystem::path& file) {
    std::error_code ignored;  // what is wrong shows when it is opened
    std::filesystem::create_directories(file.parent_path(), ignored);
    descriptor_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor_ >= 0) flock(descriptor_, LOCK_EX);
  }
  ~LockedTime() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  LockedTime(const LockedTime&) = delete;
  LockedTime& operator=(const LockedTime&) = delete;

  double read() const {
    std::array<char, 32> text{};
    if (pread(descriptor_, text.data(), text.size() - 1, 0) <= 0) return 0;
    return std::strtod(text.data(), nullptr);
  }
  void write(double time) const {
    const std::string text = fixedText(time, 3) + '\n';
    if (pwrite(descriptor_, text.data(), text.size(), 0) > 0) {
      [[maybe_unused]] const int cut = ftruncate(descriptor_, static_cast<off_t>(text.size()));
    }
  }

 private:
  int descriptor_ = -1;
};

// The earliest turn, of which one is reasonable.
double earliest(double next, double now) {
  return next > now + kLongest ? now : std::max(now, next);
}

}  // namespace

std::optional<double> RequestTurns::take(double apart, double most) {
  const LockedTime shared(file_);
  const double now = unixTime();
  const double turn = earliest(std::max(next_, shared.read()), now);
  if (turn - now > most) return std::nullopt;
  next_ = turn + apart;
  shared.write(next_);
  return turn - now;
}

void RequestTurns::putOff(double seconds) {
  const LockedTime shared(file_);
  const double now = unixTime();
  next_ = std::max(earliest(std::max(next_, shared.read()), now), now + seconds);
  shared.write(next_);
}

}  // namespace wayfell
