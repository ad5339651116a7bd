// A scene, and all that it stands on.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/qt/QtRunLoop.h"
#include "hosts/replay/RecordingChoice.h"
#include "hosts/scene/Scene.h"
#include "hosts/services/Warn.h"
#include "hosts/window/SourceChoice.h"
#include "platform/CLLocation.h"

namespace wayfell {

class Stage {
 public:
  virtual ~Stage() = default;
  virtual Scene& scene() = 0;
  /// The fix that the panel shows.
  virtual std::optional<CLLocation> fix() const = 0;
};

struct StageWishes {
  SourceChoice source;
  /// Of recordings: settings to begin with, and the pace (see Playback).
  RecordingChoice recording;
  double rate = 1;
  /// A file that gets a line at each snapshot that a recording asks for; none if empty.
  std::string snapshots;
};

/// Warns of what the user should know, which is also what has been found for source::Automatic.
/// Throws InputError for what cannot be read. The loop must outlive the stage.
std::unique_ptr<Stage> openStage(QtRunLoop& loop, StageWishes wishes, const Warn& warn);

}  // namespace wayfell
