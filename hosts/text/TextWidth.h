// How many columns of a terminal texts take, and texts cut to columns: wide characters take two,
// combining marks none, as ncurses counts them whatever the locale.
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

/// As much of a text as the columns have room for. Letters keep their marks, and emojis their
/// parts.
std::string_view cut(std::string_view text, int columns);

/// A printable text cut to the columns, with an ellipsis at the end if it is longer.
std::string fitted(std::string_view text, int columns);

/// A printable text in lines of at most the columns, two or more. It is broken where its script
/// allows it, at blanks above all, and within a word that is longer than a line.
std::vector<std::string> wrapped(std::string_view text, int columns);

/// `count` times the text.
std::string repeated(std::string_view text, int count);

}  // namespace wayfell
