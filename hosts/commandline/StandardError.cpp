#include "hosts/commandline/StandardError.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "hosts/text/TextWidth.h"

namespace wayfell {

void complain(std::string_view what) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, printable(what).c_str());
}

void complainMore(std::string_view what) {
  std::fprintf(stderr, "  %s\n", printable(what).c_str());
}

void remark(std::string_view what) {
  if (isatty(STDERR_FILENO) != 0) complain(what);
}

}  // namespace wayfell
