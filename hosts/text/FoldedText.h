// Letters without their diacritics, for searching and for terminals that lack them.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// The letter that one with diacritics is made of, such as "O" for "Ö" and "Ø". Others stay.
char32_t baseLetter(char32_t codePoint);

/// A name to compare with others: without case, whether accents are letters of their own or
/// composed, and with single blanks between words. Empty for one that is not UTF-8.
std::string comparableName(std::string_view name);

/// A text in small letters without diacritics, and nothing but its letters and digits. Empty for
/// one that is not UTF-8.
std::string foldedText(std::string_view text);

}  // namespace wayfell
