// `wayfell replay`: plays a recording and prints what the widget shows. docs/replay.md is its
// manual.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct ReplayCommand {
  std::string file;  ///< "-" for standard input; not used with the demo
  bool demo = false;
  std::vector<std::string> suite;  ///< "KEY=VALUE"
  std::vector<std::string> local;
  std::optional<double> every;  ///< seconds
  bool text = false;
};

/// Prints on standard output, errors and notes on standard error. Returns the status to exit with.
int runReplay(const ReplayCommand& command);

/// Statuses to exit with, for every command.
inline constexpr int kDone = 0;
inline constexpr int kBadInput = 1;
inline constexpr int kBadUsage = 2;

}  // namespace wayfell
