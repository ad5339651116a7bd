#include "hosts/live/SystemClock.h"

#include <chrono>

namespace wayfell {
namespace {

class SystemClock : public Clock {
 public:
  NSDate now() const override {
    constexpr std::chrono::seconds kReferenceDate{978307200};  // 2001-01-01 in Unix seconds
    const auto since = std::chrono::system_clock::now().time_since_epoch() - kReferenceDate;
    return {std::chrono::duration<double>(since).count()};
  }
};

}  // namespace

Clock& systemClock() {
  static SystemClock clock;
  return clock;
}

}  // namespace wayfell
