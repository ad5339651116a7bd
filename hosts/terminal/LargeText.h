// Numbers three rows high, to be read from afar:
//
//   ▄▄    ▄▄▄
//    █    █ █
//   ▄█▄ ▄ █▄█ km/h
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace wayfell {

inline constexpr int kLargeRows = 3;

/// Rows of the same width.
struct LargeText {
  std::array<std::string, kLargeRows> rows;
  int columns = 0;
};

/// Digits and what stands between them are large, a degree sign is raised, and all else stands on
/// the last row as it is. The text is printable.
LargeText largeText(std::string_view text);

/// An arrow, `eighth` eighths of a turn clockwise from up.
const LargeText& largeArrow(std::size_t eighth);

}  // namespace wayfell
