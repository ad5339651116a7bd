#include "platform/Numbers.h"

#include <cmath>
#include <limits>

namespace wayfell {
namespace {

template <class Integer>
Integer truncated(double value) {
  // Both bounds are powers of two, hence exact doubles for either width.
  const double beyond = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
  if (std::isnan(value)) return 0;
  if (value >= beyond) return std::numeric_limits<Integer>::max();
  if (value < -beyond) return std::numeric_limits<Integer>::min();
  return static_cast<Integer>(value);
}

}  // namespace

std::int32_t truncatedToInt32(double value) { return truncated<std::int32_t>(value); }
std::int64_t truncatedToInt64(double value) { return truncated<std::int64_t>(value); }

}  // namespace wayfell
