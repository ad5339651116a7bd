// A scene, and all that it stands on.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/replay/RecordingChoice.h"
#include "hosts/scene/Scene.h"
#include "hosts/services/Warn.h"
#include "hosts/window/QtRunLoop.h"
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
  /// Of a recording.
  RecordingChoice recording;
  double rate = 1;  ///< see Playback
  /// A file to which a line is added at each snapshot that the recording asks for; none if empty.
  std::string snapshots;
};

/// Throws InputError for a recording that cannot be read, and std::invalid_argument for settings
/// that cannot. The loop must outlive the stage.
std::unique_ptr<Stage> openStage(QtRunLoop& loop, StageWishes wishes, const Warn& warn);

}  // namespace wayfell
