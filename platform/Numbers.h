// Conversions between number types, the same on every machine.
//
// The language leaves an out-of-range conversion from floating point undefined; these do not:
// they truncate toward zero, saturate at the ends of the result's range, and give 0 for
// not-a-number.
#pragma once

#include <cstdint>

namespace wayfell {

std::int32_t truncatedToInt32(double value);
std::int64_t truncatedToInt64(double value);

/// The low 32 bits, read as a signed number: how a wide integer becomes an `int`.
constexpr std::int32_t lowInt32(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace wayfell
