// What a program says on standard error.
#pragma once

#include <string_view>

namespace wayfell {

/// The program's name, a colon and the text, made fit for a terminal.
void complain(std::string_view what);
/// Likewise a line that goes on with what was complained about.
void complainMore(std::string_view what);
/// As complain(), if standard error is a terminal: scripts need not hear it.
void remark(std::string_view what);

}  // namespace wayfell
