// Something to replay: events in the order of their times.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "hosts/replay/Event.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/LineReader.h"

namespace wayfell {

class Recording {
 public:
  virtual ~Recording() = default;
  /// None after the last event. Throws InputError, after which nothing more can be read.
  virtual std::optional<Event> next() = 0;
  /// What the user should know of how the recording is read, as far as it has been; none for most.
  virtual std::optional<std::string> note() const { return std::nullopt; }
};

/// Tells by its content what the input is: a GPX track, reports of gpsd, or a scenario. Throws
/// InputError when it is none of them.
std::unique_ptr<Recording> openRecording(InputBytes input);

// The three kinds, each in the source of its name.
std::unique_ptr<Recording> openScenario(std::unique_ptr<LineReader> lines);
std::unique_ptr<Recording> openGpsdReports(std::unique_ptr<LineReader> lines);
std::unique_ptr<Recording> openGpxTrack(std::string bytes);

/// GPX files are held in memory. Longer ones are refused.
inline constexpr std::size_t kLongestGpxFile = std::size_t{256} << 20U;

}  // namespace wayfell
