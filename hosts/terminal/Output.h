// What every command leaves behind on standard output.
#pragma once

#include <string_view>

#include "hosts/commandline/ExitStatus.h"
#include "hosts/commandline/StandardError.h"

namespace wayfell {

/// Standard output. Errors are kept; nothing is written after the first.
class Output {
 public:
  bool ok() const { return error_ == 0; }
  /// That what is printed is gone when its reader has gone is no error to tell of.
  bool readerGone() const;

  void text(std::string_view text);
  void line(std::string_view text);
  void flush();

  /// Flushes and tells of the error, if there is one. The status, or kBadInput instead of kDone.
  int finish(int status);

 private:
  int error_ = 0;
};

bool outputIsTerminal();
/// The columns of the terminal that standard output is; without end if it is none.
int outputColumns();

}  // namespace wayfell
