// `wayfell convert`: positions into the texts of all formats, and references back into positions.
//
// Positions are latitude and longitude in decimal degrees on WGS 84; references are of the datum
// asked for. They come from the command line, or else from standard input, one a line, where "#"
// begins a comment. A line that cannot be read is complained about, and the rest goes on.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct ConvertCommand {
  std::vector<std::string> input;  ///< none: standard input
  /// A name from kPositionFormats, or "all". Unset is all of a position, and of a reference its
  /// decimal degrees in the form that is read.
  std::optional<std::string> to;
  std::optional<std::string> from;  ///< "utm" or "mgrs"; unset is decimal degrees
  std::optional<std::string> datum;
  int utmType = 0;  ///< 1: letters of UTM texts are latitude bands
  bool json = false;
};

/// Prints on standard output, errors and notes on standard error. Returns the status to exit with
/// (see ExitStatus.h).
int runConvert(const ConvertCommand& command);

}  // namespace wayfell
