// How many columns of a terminal texts take: wide characters two, combining marks none. It goes
// by a table of its own, so that the locale changes nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

int columnsOf(char32_t codePoint);
int columnsOf(std::string_view text);

/// The text made fit for a terminal: control characters are blanks, bytes that are not UTF-8
/// replacement characters; marks that turn the direction of writing are left out.
std::string printable(std::string_view text);

/// As much of a text as the columns have room for.
std::string_view cut(std::string_view text, int columns);

/// A printable text cut to the columns, with an ellipsis at the end if it is longer.
std::string fitted(std::string_view text, int columns);

/// A printable text in lines of at most the columns, two or more. It is broken at blanks, and
/// within a word that is longer than a line.
std::vector<std::string> wrapped(std::string_view text, int columns);

/// `count` times the text.
std::string repeated(std::string_view text, int count);

}  // namespace wayfell
