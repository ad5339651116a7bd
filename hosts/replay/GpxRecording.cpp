// The points of a GPX track, one fix each. When none has a time, they are one second apart from the
// reference date on. Otherwise segments are put in the order of their times, and points without a
// time, or with one that is out of order, are passed over. A file that is cut off is an error after
// its last whole point.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/replay/GpxTrack.h"
#include "hosts/replay/Recording.h"
#include "hosts/replay/TimeOrder.h"
#include "hosts/text/InputError.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

using Segment = GpxTrack::Segment;

bool isTimed(const TrackPoint& point) { return point.timed; }

void passOverUntimed(Segment& segment, PassedOver& passedOver) {
  std::erase_if(segment, [&passedOver](const TrackPoint& point) {
    if (!point.timed) passedOver.add(textKey("%d without a time %@"), point.line);
    return !point.timed;
  });
}

// Programs that list what is newest first may do so with a track's points, too.
void putForward(Segment& segment) {
  std::size_t forward = 0;
  std::size_t back = 0;
  for (std::size_t i = 1; i < segment.size(); ++i) {
    if (segment[i].time() > segment[i - 1].time()) ++forward;
    if (segment[i].time() < segment[i - 1].time()) ++back;
  }
  if (back > forward) std::reverse(segment.begin(), segment.end());
}

void putInOrder(std::vector<Segment>& segments) {
  for (Segment& segment : segments) putForward(segment);
  std::erase_if(segments, [](const Segment& segment) { return segment.empty(); });
  std::stable_sort(segments.begin(), segments.end(), [](const Segment& one, const Segment& other) {
    return one.front().time() < other.front().time();
  });
}

void passOverUnordered(std::vector<Segment>& segments, PassedOver& passedOver) {
  std::vector<double> times;
  for (const Segment& segment : segments) {
    for (const TrackPoint& point : segment) times.push_back(point.time());
  }
  if (std::is_sorted(times.begin(), times.end())) return;
  const std::vector<std::size_t> ordered = longestInOrder(times);
  auto next = ordered.begin();
  std::size_t index = 0;
  for (Segment& segment : segments) {
    std::erase_if(segment, [&](const TrackPoint& point) {
      const bool isNext = next != ordered.end() && *next == index++;
      isNext ? void(++next) : passedOver.add(textKey("%d out of order in time %@"), point.line);
      return !isNext;
    });
  }
}

void setASecondApart(std::vector<Segment>& segments) {
  double t = 0;
  for (Segment& segment : segments) {
    for (TrackPoint& point : segment) point.fix.timestamp = {t++};
  }
}

class GpxRecording : public Recording {
 public:
  explicit GpxRecording(GpxTrack track);

  std::optional<Event> next() override;
  std::optional<std::string> note() const override;

 private:
  GpxTrack track_;
  bool timed_ = false;
  std::size_t segment_ = 0;
  std::size_t point_ = 0;  // in the segment
};

GpxRecording::GpxRecording(GpxTrack track) : track_(std::move(track)) {
  std::vector<Segment>& segments = track_.segments;
  timed_ = std::any_of(segments.begin(), segments.end(), [](const Segment& segment) {
    return std::any_of(segment.begin(), segment.end(), isTimed);
  });
  if (timed_) {
    for (Segment& segment : segments) passOverUntimed(segment, track_.passedOver);
    putInOrder(segments);
    passOverUnordered(segments, track_.passedOver);
  } else {
    setASecondApart(segments);
  }
}

std::optional<std::string> GpxRecording::note() const {
  auto left = track_.passedOver.note();
  if (timed_) return left;
  std::string note(localized("the track has no times: its points are taken one second apart"));
  if (left) note.append(localized("; ")).append(*left);
  return note;
}

std::optional<Event> GpxRecording::next() {
  while (segment_ < track_.segments.size() && point_ == track_.segments[segment_].size()) {
    ++segment_;
    point_ = 0;
  }
  if (segment_ == track_.segments.size()) {
    if (track_.fault) throw InputError(*track_.fault);
    return std::nullopt;
  }
  const TrackPoint& point = track_.segments[segment_][point_++];
  return Event{point.time(), event::Locate{{point.fix}}};
}

}  // namespace

std::unique_ptr<Recording> openGpxTrack(std::string bytes) {
  return std::make_unique<GpxRecording>(readGpxTrack(std::move(bytes)));
}

}  // namespace wayfell
