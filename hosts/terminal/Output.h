// What every command leaves behind: results on standard output, complaints on standard error, and
// a status to exit with.
#pragma once

#include <string_view>

namespace wayfell {

inline constexpr int kDone = 0;
inline constexpr int kBadInput = 1;
inline constexpr int kBadUsage = 2;

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
/// Of the terminal that standard output is; without end if it is none.
int outputColumns();

/// Prints "wayfell: " and a text, made fit for a terminal, on standard error.
void complain(std::string_view what);
/// Likewise a line that goes on with what was complained about.
void complainMore(std::string_view what);
/// Prints a text in the same way, if standard error is a terminal: scripts need not hear it.
void remark(std::string_view what);

}  // namespace wayfell
