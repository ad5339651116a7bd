// Kinds of characters, whatever the locale.
#pragma once

#include <algorithm>
#include <string_view>

namespace wayfell {

/// ASCII only.
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

inline bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (static_cast<unsigned char>(c) & 0x80U) == 0; });
}

/// Line breaks and tabs included: what a terminal may obey instead of showing it.
constexpr bool isControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

}  // namespace wayfell
