// How many columns of a terminal texts take: wide characters two, combining marks none. It goes
// by a table of its own, so that the locale changes nothing.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

int columnsOf(char32_t codePoint);
int columnsOf(std::string_view text);

/// The text made fit for a terminal: control characters are blanks, bytes that are not UTF-8
/// replacement characters; marks that turn the direction of writing are left out.
std::string printable(std::string_view text);

/// A printable text cut to the columns, with an ellipsis at the end if it is longer.
std::string fitted(std::string_view text, int columns);

/// `count` times the text.
std::string repeated(std::string_view text, int count);

}  // namespace wayfell
