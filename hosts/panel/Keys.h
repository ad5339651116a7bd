// Keys that are no characters, by the characters that stand for them here.
#pragma once

namespace wayfell {

inline constexpr char32_t kEnterKey = U'\n';
inline constexpr char32_t kRightKey = U'→';

}  // namespace wayfell
