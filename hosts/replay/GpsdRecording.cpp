#include "hosts/replay/GpsdRecording.h"

#include <algorithm>
#include <cmath>

#include "hosts/text/InputError.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// Receivers set their clocks back by fractions of a second when they first have a fix.
constexpr double kSettling = 1;  // seconds

}  // namespace

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

}  // namespace wayfell
