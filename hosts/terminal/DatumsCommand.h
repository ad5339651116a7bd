// `wayfell datums`: the catalogue of datums, and what a conversion to each really does.
#pragma once

#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct DatumsCommand {
  std::vector<std::string> words;  ///< all of them are looked for; none lists everything
  bool names = false;              ///< names alone, one a line
  bool json = false;
};

/// Prints on standard output, errors on standard error. Returns the status to exit with (see
/// Output.h): kBadInput when nothing is found.
int runDatums(const DatumsCommand& command);

}  // namespace wayfell
