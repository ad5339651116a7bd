// Reports of gpsd as `gpspipe -w` writes them, one a line: positions and headings are replayed,
// see GpsdDecoder and GpsdFix for how they are read, and all others are passed over.
//
// The replay starts at the first fix; headings before it are passed over. A report takes place at
// its own time, but not before what came earlier in the file: headings may be timed by another
// clock than fixes, and receivers set their clocks right. One without a time takes place at that
// of the report before. Each report of a fix counts, even where gpsd reports one several times.
#include <algorithm>
#include <cmath>

#include "hosts/replay/Recording.h"
#include "hosts/services/location/GpsdReport.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// Receivers set their clocks back by fractions of a second when they first have a fix.
constexpr double kSettling = 1;  // seconds

class GpsdRecording : public Recording {
 public:
  explicit GpsdRecording(std::unique_ptr<LineReader> lines) : lines_(std::move(lines)) {}

  // Errors name the line: one that is no JSON object, a fix that is a second or more earlier than
  // the one before. A recording without any fix is an error too.
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

std::optional<Event> GpsdRecording::next() {
  while (const auto text = lines_->next()) {
    try {
      if (auto event = read(*text)) return event;
    } catch (const InputError& error) {
      throw InputError("line " + std::to_string(lines_->number()) + ": " + error.what());
    }
  }
  if (!now_) throw InputError("no fix with a time in gpsd's reports");
  return std::nullopt;
}

std::optional<Event> GpsdRecording::read(std::string_view line) {
  // libgps takes what it can get and reports nothing, so check first what it is given.
  line_.parse(line);
  if (line_.root().kind() != JsonLine::Kind::object) throw InputError("expected an object");
  const GpsdReport report = decoder_.decode(std::string(line));
  if (report.fix && (report.time || lastFix_)) return locate(*report.fix);
  if (!report.heading || !now_) return std::nullopt;
  if (report.time) now_ = std::max(*now_, report.time->timeIntervalSinceReferenceDate);
  return Event{*now_, event::Turn{*report.heading}};
}

Event GpsdRecording::locate(const GpsdFix& fix) {
  const double time = fix.time ? fix.time->timeIntervalSinceReferenceDate : *lastFix_;
  if (std::abs(time) > kFarthestTime) throw InputError("time: too far from our days");
  if (lastFix_ && time <= *lastFix_ - kSettling) {
    throw InputError("time: " + shortestText(*lastFix_ - time) +
                     " seconds before the time of the fix before");
  }
  lastFix_ = time;
  now_ = std::max(now_.value_or(time), time);
  return {*now_, event::Locate{{fix.location({time})}}};
}

}  // namespace

std::unique_ptr<Recording> openGpsdReports(std::unique_ptr<LineReader> lines) {
  return std::make_unique<GpsdRecording>(std::move(lines));
}

}  // namespace wayfell
