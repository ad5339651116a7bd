// Reports of gpsd as `gpspipe -w` writes them, one a line: positions and headings are replayed,
// see GpsdDecoder and GpsdFix for how they are read, and all others are passed over.
//
// The replay starts at the first fix; headings before it are passed over. A report takes place at
// its own time, but not before what came earlier in the file: headings may be timed by another
// clock than fixes, and receivers set their clocks right. One without a time takes place at that
// of the report before. Each report of a fix counts, even where gpsd reports one several times.
#pragma once

#include "hosts/replay/Recording.h"
#include "hosts/services/location/GpsdReport.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"

namespace wayfell {

class GpsdRecording : public Recording {
 public:
  explicit GpsdRecording(std::unique_ptr<LineReader> lines) : lines_(std::move(lines)) {}

  /// Errors name the line: one that is no JSON object, a fix that is a second or more earlier than
  /// the one before. A recording without any fix is an error too.
  std::optional<Event> next() override;

 private:
  std::optional<Event> read(std::string_view line);
  Event locate(const GpsdFix& fix);

  std::unique_ptr<LineReader> lines_;
  JsonLine line_;
  GpsdDecoder decoder_;
  std::optional<double> now_;      // of the last event
  std::optional<double> lastFix_;  // its time
};

}  // namespace wayfell
