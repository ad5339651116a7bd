// A replay written out event by event: JSON Lines, each an object with its time "t" and one event.
// docs/replay.md says what events there are. It is read line by line as the replay goes on.
#pragma once

#include "hosts/replay/Recording.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"

namespace wayfell {

class Scenario : public Recording {
 public:
  explicit Scenario(std::unique_ptr<LineReader> lines) : lines_(std::move(lines)) {}
  /// Errors name the line and the field.
  std::optional<Event> next() override;

 private:
  std::unique_ptr<LineReader> lines_;
  JsonLine line_;
  std::optional<double> lastTime_;
};

}  // namespace wayfell
