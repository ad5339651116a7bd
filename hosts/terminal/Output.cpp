#include "hosts/terminal/Output.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

namespace wayfell {

bool Output::readerGone() const { return error_ == EPIPE; }

void Output::text(std::string_view text) {
  if (ok() && std::fwrite(text.data(), 1, text.size(), stdout) < text.size()) error_ = errno;
}

void Output::line(std::string_view text) {
  this->text(text);
  if (ok() && std::fputc('\n', stdout) == EOF) error_ = errno;
}

void Output::flush() {
  if (ok() && std::fflush(stdout) == EOF) error_ = errno;
}

int Output::finish(int status) {
  flush();
  if (ok() || readerGone()) return status;
  complain(std::string("standard output: ") + std::strerror(error_));
  return status == kDone ? kBadInput : status;
}

bool outputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

int outputColumns() {
  constexpr int kUsual = 80;
  if (!outputIsTerminal()) return std::numeric_limits<int>::max();
  winsize size{};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsual;
}

}  // namespace wayfell
