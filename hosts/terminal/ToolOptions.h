// The part of the command line that belongs to convert, distance and datums.
#pragma once

#include <optional>

#include "hosts/terminal/ConvertCommand.h"
#include "hosts/terminal/DatumsCommand.h"
#include "hosts/terminal/DistanceCommand.h"

namespace CLI {
class App;
}

namespace wayfell {

class ToolOptions {
 public:
  /// Adds the commands to a program, which must not outlive this.
  explicit ToolOptions(CLI::App& app);
  ToolOptions(const ToolOptions&) = delete;
  ToolOptions& operator=(const ToolOptions&) = delete;

  /// Runs the command that was asked for, if it is one of these, and returns its status.
  std::optional<int> run() const;

 private:
  void addConvert(CLI::App& app);
  void addDistance(CLI::App& app);
  void addDatums(CLI::App& app);

  ConvertCommand convert_;
  DistanceCommand distance_;
  DatumsCommand datums_;
  const CLI::App* convertCommand_ = nullptr;
  const CLI::App* distanceCommand_ = nullptr;
  const CLI::App* datumsCommand_ = nullptr;
};

}  // namespace wayfell
