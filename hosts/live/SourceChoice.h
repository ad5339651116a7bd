// Where positions come from, as people write it on every command line: auto, gpsd,
// gpsd=HOST:PORT, replay=FILE, demo, and what a host can open besides.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/live/LiveScene.h"
#include "hosts/loop/HostRunLoop.h"
#include "hosts/replay/RecordingChoice.h"

namespace wayfell {

struct SourceChoice {
  std::string kind = "auto";
  std::string where = {};  ///< what stands behind "="

  bool isRecording() const { return kind == "replay" || kind == "demo"; }
  RecordingChoice recording() const { return {where, kind == "demo"}; }

  friend bool operator==(const SourceChoice&, const SourceChoice&) = default;
};

struct LiveSource {
  std::unique_ptr<LocationSource> source;
  SourceStatus status;
};

/// How a source is written, and what it is, for those who ask for help.
struct SourceForm {
  std::string written;  ///< "gpsd[=HOST:PORT]"
  std::string about;
};

/// A kind of live source.
struct LiveKind {
  std::string name;  ///< "gpsd"
  std::vector<SourceForm> forms;
  /// Whether that may stand behind "="; "" is none.
  std::function<bool(const std::string& where)> takes;
  std::function<LiveSource(HostRunLoop& loop, const std::string& where)> open;
  /// For those that `auto` tries, when nothing is said of where: as it calls them, and whether they
  /// are there.
  std::function<std::string()> called = {};
  std::function<bool(HostRunLoop& loop)> isThere = {};
  /// For one that `auto` changes over to when it comes later. Looks for it in the background, and
  /// calls back at least once when it is there, until the result is released, which the call
  /// itself must not do.
  std::function<std::shared_ptr<void>(HostRunLoop& loop, std::function<void()> isThere)> await = {};
};

/// The kinds that a host can open.
class Sources {
 public:
  /// gpsd, then those. `auto` takes the first that is there, or else the demo.
  explicit Sources(std::vector<LiveKind> more = {});

  /// None for what is no source.
  std::optional<SourceChoice> choiceOf(std::string_view text) const;
  /// All that choiceOf takes.
  std::vector<SourceForm> forms() const;

  const std::vector<LiveKind>& live() const { return live_; }
  const LiveKind& live(const std::string& name) const;

 private:
  std::vector<LiveKind> live_;
};

}  // namespace wayfell
