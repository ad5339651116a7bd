#include "hosts/replay/GpxTrack.h"

#include <cmath>
#include <string_view>
#include <utility>

#include "hosts/replay/Event.h"
#include "hosts/replay/GpxElements.h"
#include "hosts/services/location/FixQuality.h"
#include "hosts/text/InputError.h"
#include "hosts/text/IsoTime.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// An accuracy of the point, from a dilution of precision.
double accuracyOf(const pugi::xml_node& point, const char* dilution) {
  const auto known = estimate(gpx::number(point, dilution).value_or(0));
  return known ? *known * kMetresPerDilution : kUsualAccuracy;
}

// The number in an element of the point itself, or in one anywhere in its extensions; or else -1.
double numberOrExtension(const pugi::xml_node& point, const char* name) {
  if (const auto own = gpx::number(point, name)) return *own;
  const auto node = gpx::child(point, "extensions").find_node([name](const auto& one) {
    return gpx::localName(one) == name;
  });
  return gpx::number(gpx::text(node)).value_or(-1);
}

CLLocation fixAt(const pugi::xml_node& point, const CLLocationCoordinate2D& coordinate) {
  CLLocation fix;
  fix.coordinate = coordinate;
  fix.horizontalAccuracy = accuracyOf(point, "hdop");
  fix.verticalAccuracy = accuracyOf(point, "vdop");
  fix.altitude = gpx::number(point, "ele").value_or(0);
  fix.speed = numberOrExtension(point, "speed");
  fix.course = numberOrExtension(point, "course");
  return fix;
}

class TrackReader {
 public:
  explicit TrackReader(const gpx::Document& document);

  GpxTrack track() { return std::move(track_); }

 private:
  void addSegment(const pugi::xml_node& node);
  void addPoint(const pugi::xml_node& node, GpxTrack::Segment& segment);
  void dropLastPoint();
  [[noreturn]] void refuse() const;

  const gpx::Document& document_;
  GpxTrack track_;
};

TrackReader::TrackReader(const gpx::Document& document) : document_(document) {
  for (const auto& track : document_.root()) {
    if (gpx::localName(track) != "trk") continue;
    for (const auto& segment : track) {
      if (gpx::localName(segment) == "trkseg") addSegment(segment);
    }
  }
  track_.fault = document_.fault();
  if (track_.fault) dropLastPoint();
  if (track_.segments.empty()) refuse();
}

// Each point is freed when it has been read: many of them are larger in the document than here.
void TrackReader::addSegment(const pugi::xml_node& node) {
  GpxTrack::Segment segment;
  for (auto point = node.first_child(); point; point = gpx::Document::pass(point)) {
    if (gpx::localName(point) == "trkpt") addPoint(point, segment);
  }
  if (!segment.empty()) track_.segments.push_back(std::move(segment));
}

void TrackReader::addPoint(const pugi::xml_node& node, GpxTrack::Segment& segment) {
  const std::size_t line = document_.lineOf(node);
  const auto coordinate = gpx::coordinate(node);
  if (!coordinate) return track_.passedOver.add(textKey("%d without a position %@"), line);
  if (!gpx::isOnEarth(*coordinate))
    return track_.passedOver.add(textKey("%d not on Earth %@"), line);
  TrackPoint point{fixAt(node, *coordinate), false, static_cast<std::uint32_t>(line)};
  const std::string_view written = gpx::text(gpx::child(node, "time"));
  const auto time = dateOfIsoTime(written);
  if (!time && !written.empty()) {
    return track_.passedOver.add(textKey("%d with a time unlike 2010-10-04T05:13:19Z %@"), line);
  }
  // Programs that have no time may write the year 1 instead.
  if (time && std::abs(time->timeIntervalSinceReferenceDate) <= kFarthestTime) {
    point.fix.timestamp = *time;
    point.timed = true;
  }
  segment.push_back(point);
}

// It may have ended in the middle of a number.
void TrackReader::dropLastPoint() {
  if (track_.segments.empty()) return;
  track_.segments.back().pop_back();
  if (track_.segments.back().empty()) track_.segments.pop_back();
}

void TrackReader::refuse() const {
  if (track_.fault) throw InputError(*track_.fault);
  if (const auto line = track_.passedOver.firstLine()) {
    throw InputError("line " + std::to_string(*line) +
                     ": a track point without a position on Earth, or with a time unlike "
                     "2010-10-04T05:13:19Z; and no other is better");
  }
  const bool waypoints = bool(gpx::child(document_.root(), "wpt"));
  if (!waypoints && !gpx::child(document_.root(), "rte")) {
    throw InputError("no track points in the GPX file");
  }
  throw InputError(std::string("no track points, only ") + (waypoints ? "waypoints" : "a route") +
                   "; wayfell waypoint set --gpx FILE makes one of its points the waypoint");
}

}  // namespace

GpxTrack::GpxTrack()
    : passedOver(textKey("passed over 1 point: %@"), textKey("passed over %d points: %@")) {}

GpxTrack readGpxTrack(std::string bytes) {
  const gpx::Document document(std::move(bytes));
  return TrackReader(document).track();
}

}  // namespace wayfell
