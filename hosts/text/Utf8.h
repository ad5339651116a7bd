// Reading UTF-8 texts code point by code point.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// What a text may begin with, to say that it is UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Takes the first code point off a text that is not empty. None for bytes that are not UTF-8
/// (overlong forms, surrogates and numbers beyond U+10FFFF included), of which one is taken.
std::optional<char32_t> takeCodePoint(std::string_view& text);

bool isUtf8(std::string_view text);
/// How many bytes at the start are UTF-8.
std::size_t utf8Prefix(std::string_view text);

/// Adds a code point to the end.
void appendCodePoint(std::string& text, char32_t codePoint);

}  // namespace wayfell
