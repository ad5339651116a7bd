// Reports of gpsd as `gpspipe -w` writes them, one a line: positions and headings are replayed,
// see GpsdDecoder and GpsdFix for how they are read, and all others are passed over.
//
// The replay starts at the first fix with a time; reports before it are passed over. Each report of
// a fix counts, even where gpsd reports one several times, and takes place at its own time, but not
// before what came earlier in the file. One without a time takes place at that of the fix before.
// Receivers set their clocks, and those of old ones run over after 1024 weeks: where the time goes
// back, or leaps far ahead, a second passes, and the replay goes on with the new time from there.
// A heading that is timed by another clock than fixes takes place when it comes.
#include <algorithm>
#include <cmath>
#include <deque>
#include <utility>

#include "hosts/replay/PassedOver.h"
#include "hosts/replay/Recording.h"
#include "hosts/services/location/GpsdNotice.h"
#include "hosts/services/location/GpsdReport.h"
#include "hosts/services/location/KeptAltitude.h"
#include "hosts/text/InputError.h"
#include "hosts/text/LineReader.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// Seconds.
constexpr double kSettling = 1;  // by fractions of it receivers set their clocks back at first
constexpr double kLongestPause = 30 * 86400;
constexpr double kBetweenHeadings = 10;  // at most
constexpr double kBetweenFixes = 1;      // where nothing tells

// A receiver that has not told the time in so many fixes never will.
constexpr std::size_t kPatience = 100;

// What is not whole may hold half a number, and libgps takes what it can get.
bool isWhole(std::string_view line) { return isGpsdObject(line) && line.ends_with('}'); }

class GpsdRecording : public Recording {
 public:
  explicit GpsdRecording(std::unique_ptr<LineReader> lines) : lines_(std::move(lines)) {}

  // A recording without any fix is an error.
  std::optional<Event> next() override;
  std::optional<std::string> note() const override;

 private:
  std::optional<Event> take(const std::string& line);
  std::optional<Event> locate(const GpsdFix& fix, std::optional<double> time);
  Event turn(const CLHeading& heading, std::optional<double> time);
  Event nextUntimed();
  void setClock(double time);

  std::unique_ptr<LineReader> lines_;
  std::optional<std::size_t> unreadLine_;  // the last one, if it could not be read
  GpsdDecoder decoder_;
  KeptAltitude altitude_;
  std::optional<double> now_;       // of the last event
  std::optional<double> lastTime_;  // of a fix, by the receiver's clock
  double ahead_ = 0;                // that clock of the replay's, seconds
  std::deque<GpsdFix> untimed_;     // before any fix with a time
  bool neverTimed_ = false;

  NotedLines clockSet_;
  PassedOver passedOver_{textKey("passed over 1 line: %@"), textKey("passed over %d lines: %@")};
};

std::optional<Event> GpsdRecording::next() {
  for (;;) {
    if (neverTimed_ && !untimed_.empty()) return nextUntimed();
    if (const auto line = lines_->next()) {
      if (auto event = take(std::string(*line))) return event;
    } else if (!untimed_.empty()) {
      neverTimed_ = true;
    } else if (now_) {
      return std::nullopt;
    } else {
      throw InputError("no fix in gpsd's reports");
    }
  }
}

std::optional<Event> GpsdRecording::take(const std::string& line) {
  if (unreadLine_)
    passedOver_.add(textKey("%d that cannot be read %@"), *std::exchange(unreadLine_, {}));
  if (!isWhole(line)) {
    unreadLine_ = lines_->number();  // the end of a file may be cut off: that is no news
    return std::nullopt;
  }
  const GpsdReport report = decoder_.decode(line);
  std::optional<double> time;
  if (report.time) time = report.time->timeIntervalSinceReferenceDate;
  if (time && std::abs(*time) > kFarthestTime) time.reset();
  if (report.fix) return locate(*report.fix, time);
  if (!report.heading || !now_) return std::nullopt;
  return turn(*report.heading, time);
}

std::optional<Event> GpsdRecording::locate(const GpsdFix& fix, std::optional<double> time) {
  if (!time && !lastTime_) {
    untimed_.push_back(fix);
    if (untimed_.size() == kPatience) neverTimed_ = true;
    return std::nullopt;
  }
  untimed_.clear();  // parts of this fix
  if (time) setClock(*time);
  const double instant = *lastTime_ - ahead_;
  now_ = std::max(now_.value_or(instant), instant);
  return Event{*now_, event::Locate{{altitude_.completed(fix.location({instant}))}}};
}

void GpsdRecording::setClock(double time) {
  const bool isSet =
      lastTime_ && (time <= *lastTime_ - kSettling || time > *lastTime_ + kLongestPause);
  if (isSet) clockSet_.add(lines_->number());
  if (isSet || (now_ && !lastTime_)) ahead_ = time - (*now_ + kBetweenFixes);
  lastTime_ = time;
}

Event GpsdRecording::turn(const CLHeading& heading, std::optional<double> time) {
  const double instant = time ? *time - ahead_ : *now_;
  if (instant > *now_ && instant <= *now_ + kBetweenHeadings) now_ = instant;
  return Event{*now_, event::Turn{heading}};
}

Event GpsdRecording::nextUntimed() {
  now_ = now_ ? *now_ + kBetweenFixes : 0;
  Event event{*now_, event::Locate{{altitude_.completed(untimed_.front().location({*now_}))}}};
  untimed_.pop_front();
  return event;
}

std::optional<std::string> GpsdRecording::note() const {
  std::string note;
  const auto add = [&note](std::string_view what) {
    // Translators: between two sentences.
    if (!note.empty()) note += localized("; ");
    note += what;
  };
  if (neverTimed_) {
    add(lastTime_ ? localized("the first fixes have no times: they are taken one second apart")
                  : localized("no fix has a time: they are taken one second apart"));
  }
  if (clockSet_.count() > 0) {
    add(localizedStringWithFormat("the receiver set its clock %@: that is taken for a second",
                                  clockSet_.text()));
  }
  if (const auto left = passedOver_.note()) add(*left);
  return note.empty() ? std::nullopt : std::optional(note);
}

}  // namespace

std::unique_ptr<Recording> openGpsdReports(std::unique_ptr<LineReader> lines) {
  return std::make_unique<GpsdRecording>(std::move(lines));
}

}  // namespace wayfell
