// The track points of a GPX 1.0 or 1.1 file, one fix each; waypoints and routes are left aside.
//
//   horizontalAccuracy  hdop x 5 m, or else 5 m
//   verticalAccuracy    vdop x 5 m, or else 5 m
//   altitude            ele, or else 0
//   speed, course       as given (in 1.1 by an extension, such as gpxtpx:speed), or else -1
//   t and timestamp     time
// When no point has a time, they are one second apart from the reference date on. Otherwise tracks
// without any times are passed over (receivers keep such copies beside their logs), each point of
// the others must have one, and none may be earlier than that of the point before.
#include <cmath>
#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/replay/GpxElements.h"
#include "hosts/replay/Recording.h"
#include "hosts/services/location/FixQuality.h"
#include "hosts/text/InputError.h"
#include "hosts/text/IsoTime.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// An accuracy of the point, from a dilution of precision.
double accuracyOf(const pugi::xml_node& point, const char* dilution) {
  const auto given = gpx::number(point, dilution);
  return given ? *given * kMetresPerDilution : kUsualAccuracy;
}

// The number in an element of the point itself, or in one anywhere in its extensions.
std::optional<double> numberOrExtension(const pugi::xml_node& point, const char* name) {
  if (const auto own = gpx::number(point, name)) return own;
  const auto node = gpx::child(point, "extensions").find_node([name](const auto& one) {
    return gpx::localName(one) == name;
  });
  return node ? std::optional(gpx::number(gpx::text(node), name)) : std::nullopt;
}

class GpxRecording : public Recording {
 public:
  // Throws InputError for a text that is no GPX file, or one without track points.
  explicit GpxRecording(const std::string& xml);

  // Errors name the point, counted from 1 throughout the file, and what is wrong with it.
  std::optional<Event> next() override;
  std::optional<std::string> note() const override;

 private:
  struct Point {
    pugi::xml_node node;
    std::size_t number = 0;
  };

  void addTrack(const pugi::xml_node& track);
  CLLocation readPoint(const Point& point) const;
  double timeOf(const Point& point) const;

  pugi::xml_document document_;
  std::vector<Point> points_;
  std::size_t next_ = 0;   // in points_
  std::size_t found_ = 0;  // points in the file
  bool timed_ = false;
  std::optional<double> lastTime_;
};

GpxRecording::GpxRecording(const std::string& xml) {
  for (const auto& node : gpx::load(document_, xml)) {
    if (gpx::localName(node) == "trk") addTrack(node);
  }
  if (points_.empty()) throw InputError("no track points in the GPX file");
}

void GpxRecording::addTrack(const pugi::xml_node& track) {
  std::vector<Point> points;
  bool timed = false;
  for (const auto& segment : track) {
    if (gpx::localName(segment) != "trkseg") continue;
    for (const auto& node : segment) {
      if (gpx::localName(node) != "trkpt") continue;
      points.push_back({node, ++found_});
      timed = timed || !gpx::text(gpx::child(node, "time")).empty();
    }
  }
  if (timed && !timed_) {
    timed_ = true;
    points_.clear();
  }
  if (timed == timed_) points_.insert(points_.end(), points.begin(), points.end());
}

std::optional<std::string> GpxRecording::note() const {
  if (!timed_) {
    return std::string(localized("the track has no times: its points are taken one second apart"));
  }
  if (points_.size() == found_) return std::nullopt;
  return localizedStringWithFormat("%d track points are passed over, as their tracks have no times",
                                   found_ - points_.size());
}

std::optional<Event> GpxRecording::next() {
  if (next_ == points_.size()) return std::nullopt;
  const Point& point = points_[next_++];
  try {
    const CLLocation fix = readPoint(point);
    lastTime_ = fix.timestamp.timeIntervalSinceReferenceDate;
    return Event{*lastTime_, event::Locate{{fix}}};
  } catch (const InputError& error) {
    throw InputError("track point " + std::to_string(point.number) + ": " + error.what());
  }
}

CLLocation GpxRecording::readPoint(const Point& point) const {
  CLLocation fix;
  fix.coordinate = gpx::coordinate(point.node);
  fix.horizontalAccuracy = accuracyOf(point.node, "hdop");
  fix.verticalAccuracy = accuracyOf(point.node, "vdop");
  fix.altitude = gpx::number(point.node, "ele").value_or(0);
  fix.speed = numberOrExtension(point.node, "speed").value_or(-1);
  fix.course = numberOrExtension(point.node, "course").value_or(-1);
  fix.timestamp = {timeOf(point)};
  return fix;
}

double GpxRecording::timeOf(const Point& point) const {
  if (!timed_) return static_cast<double>(point.number - 1);
  const std::string_view written = gpx::text(gpx::child(point.node, "time"));
  if (written.empty()) throw InputError("time: missing, while other points have one");
  const auto date = dateOfIsoTime(written);
  if (!date || std::abs(date->timeIntervalSinceReferenceDate) > kFarthestTime) {
    throw InputError("time: expected the like of 2010-10-04T05:13:19Z");
  }
  const double t = date->timeIntervalSinceReferenceDate;
  if (lastTime_ && t < *lastTime_) {
    throw InputError("time: " + shortestText(*lastTime_ - t) +
                     " seconds before the time of the point before");
  }
  return t;
}

}  // namespace

std::unique_ptr<Recording> openGpxTrack(const std::string& xml) {
  return std::make_unique<GpxRecording>(xml);
}

}  // namespace wayfell
