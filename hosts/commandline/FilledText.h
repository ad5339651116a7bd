// Texts of helps and tables in lines of a given width. They are broken at blanks alone, so that
// names of options and files stay whole.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// The words of a text in lines of no more than the columns; all but the first begin with the
/// indent.
std::string filled(std::string_view text, int columns, std::string_view indent = "");

/// A help's text. Lines that follow one another are a paragraph, and filled. Those that begin with
/// a blank are examples or rows of a list, each of its own; where one is too long, it goes on below
/// its last column, which two blanks set apart.
std::string filledHelp(std::string_view text, int columns);

}  // namespace wayfell
