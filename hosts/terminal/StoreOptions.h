// The part of the command line that belongs to settings, waypoint and track.
#pragma once

#include <optional>

#include "hosts/terminal/SettingsCommand.h"
#include "hosts/terminal/TrackCommand.h"
#include "hosts/terminal/WaypointCommand.h"

namespace CLI {
class App;
}

namespace wayfell {

class StoreOptions {
 public:
  /// Adds the commands to a program, which must not outlive this.
  explicit StoreOptions(CLI::App& app);
  StoreOptions(const StoreOptions&) = delete;
  StoreOptions& operator=(const StoreOptions&) = delete;

  /// Runs the command that was asked for, if it is one of these, and returns its status.
  std::optional<int> run() const;

 private:
  void addSettings(CLI::App& app);
  void addWaypoint(CLI::App& app);
  void addTrack(CLI::App& app);

  SettingsCommand settings_;
  WaypointCommand waypoint_;
  TrackCommand track_;
  const CLI::App* settingsCommand_ = nullptr;
  const CLI::App* waypointCommand_ = nullptr;
  const CLI::App* trackCommand_ = nullptr;
};

}  // namespace wayfell
