// What the terminfo database says of the terminal that TERM names.
#pragma once

#include <string>

namespace wayfell {

class Terminfo {
 public:
  /// For standard output. To be gone before ncurses starts, which reads the database for itself.
  Terminfo();
  ~Terminfo();
  Terminfo(const Terminfo&) = delete;
  Terminfo& operator=(const Terminfo&) = delete;

  /// Whether texts can be placed anywhere; false also when the database does not know the
  /// terminal, of which nothing else may be asked then.
  bool canPlaceText() const;
  bool hasMouse() const;
  /// What brings the terminal back from whatever ncurses has made of it, for when there is no time
  /// to let ncurses do so.
  std::string rescueText() const;

 private:
  bool known_;
};

}  // namespace wayfell
