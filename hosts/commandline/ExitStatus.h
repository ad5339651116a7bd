// What the programs exit with.
#pragma once

namespace wayfell {

inline constexpr int kDone = 0;
inline constexpr int kBadInput = 1;
inline constexpr int kBadUsage = 2;

}  // namespace wayfell
