// What the terminfo database says of the terminal that TERM names.
#pragma once

#include <string>

namespace wayfell {

struct Terminfo {
  /// Whether texts can be placed anywhere; false also when the database does not know the terminal,
  /// of which it then says nothing else.
  bool canPlaceText = false;
  bool hasMouse = false;
  /// What brings the terminal back from whatever ncurses has made of it, for when there is no time
  /// to let ncurses do so.
  std::string rescueText;
};

/// For standard output. To be asked before ncurses starts, which reads the database for itself.
Terminfo readTerminfo();

}  // namespace wayfell
