#include "hosts/terminal/MouseReport.h"

namespace wayfell {
namespace {

constexpr int kX10Offset = 32;
constexpr int kGreatestNumber = 10000;  // no screen is larger
// Bits of the button's number: which of three, and whether it is none but a motion or a wheel. The
// bits between tell of keys held down, which change nothing.
constexpr int kButton = 3;
constexpr int kNoButton = 32 | 64 | 128;

}  // namespace

bool MouseReport::take(int byte) {
  if (form_ == Form::x10) {
    numbers_.at(complete_) = byte - kX10Offset;
    press_ = true;  // a release has a button of its own
    return ++complete_ == numbers_.size();
  }
  if (byte >= '0' && byte <= '9') {
    if (complete_ >= numbers_.size()) return false;
    int& number = numbers_.at(complete_);
    if (number < kGreatestNumber) number = 10 * number + byte - '0';
    return false;
  }
  ++complete_;
  if (byte == ';') return false;
  press_ = byte == 'M' && complete_ == numbers_.size();
  return true;
}

std::optional<Click> MouseReport::click() const {
  const auto [button, column, row] = numbers_;
  if (!press_ || (button & (kButton | kNoButton)) != 0 || column < 1 || row < 1) {
    return std::nullopt;
  }
  return Click{row - 1, column - 1};
}

}  // namespace wayfell
