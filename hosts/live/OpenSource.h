// Opens what a user has chosen to see: the way from a source's name to a widget that stands on it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/live/SourceChoice.h"
#include "hosts/live/Stage.h"
#include "hosts/services/Warn.h"

namespace wayfell {

struct SourceWishes {
  SourceChoice source;
  /// For recordings: settings to begin with, the pace (see Playback; 1 if none), and a file that
  /// gets a line at each snapshot that a recording asks for, none if empty.
  FirstSettings settings;
  std::optional<double> rate;
  std::string snapshots;
};

struct OpenedSource {
  std::unique_ptr<Stage> stage;
  /// What the user should know: what `auto` has not found, or how a recording is read.
  std::optional<std::string> missing;
  std::optional<std::string> note;
};

/// Takes up to 0.3 s for `auto`, in which it runs the loop. The loop must outlive the stage, which
/// warns at any time. Throws InputError for what cannot be read.
OpenedSource openSource(HostRunLoop& loop, const Sources& sources, const SourceWishes& wishes,
                        const Warn& warn);

}  // namespace wayfell
