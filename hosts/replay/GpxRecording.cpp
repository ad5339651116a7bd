#include "hosts/replay/GpxRecording.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "hosts/replay/InputError.h"
#include "hosts/replay/IsoTime.h"
#include "hosts/services/Utf8.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr double kMetresPerDop = 5;
constexpr double kUsualAccuracy = 5;  // metres

// Prefixes are the writer's choice.
std::string_view localName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

pugi::xml_node child(const pugi::xml_node& parent, std::string_view name) {
  return parent.find_child([name](const auto& node) { return localName(node) == name; });
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  text.remove_suffix(text.size() - 1 - text.find_last_not_of(kBlanks));
  return text;
}

std::string_view text(const pugi::xml_node& node) { return trimmed(node.text().get()); }

double number(std::string_view digits, const char* field) {
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  double value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) {
    throw InputError(std::string(field) + ": expected a number");
  }
  return value;
}

// Of an element of the point itself.
std::optional<double> number(const pugi::xml_node& point, const char* name) {
  const auto node = child(point, name);
  return node ? std::optional(number(text(node), name)) : std::nullopt;
}

// Likewise, or of one anywhere in the point's extensions.
std::optional<double> numberOrExtension(const pugi::xml_node& point, const char* name) {
  if (const auto own = number(point, name)) return own;
  const auto node = child(point, "extensions").find_node([name](const auto& one) {
    return localName(one) == name;
  });
  return node ? std::optional(number(text(node), name)) : std::nullopt;
}

double coordinate(const pugi::xml_node& point, const char* name, double limit) {
  const auto attribute = point.attribute(name);
  if (!attribute) throw InputError(std::string(name) + ": missing");
  const double degrees = number(trimmed(attribute.value()), name);
  if (std::abs(degrees) > limit) {
    throw InputError(std::string(name) + ": beyond " + shortestText(limit) + " degrees");
  }
  return degrees;
}

std::string lineOf(std::string_view xml, std::ptrdiff_t offset) {
  const auto lines = std::count(xml.begin(), xml.begin() + offset, '\n') + 1;
  return "line " + std::to_string(lines) + ": ";
}

}  // namespace

GpxRecording::GpxRecording(const std::string& xml) {
  const pugi::xml_parse_result result = document_.load_buffer(xml.data(), xml.size());
  if (!result) {
    throw InputError(lineOf(xml, result.offset) + "not well-formed XML: " + result.description());
  }
  if (result.encoding == pugi::encoding_utf8 && !isUtf8(xml)) throw InputError("not UTF-8");
  const auto root = document_.document_element();
  if (localName(root) != "gpx") {
    throw InputError("not GPX: the document is of type <" + std::string(root.name()) + ">");
  }
  for (const auto& node : root) {
    if (localName(node) == "trk") addTrack(node);
  }
  if (points_.empty()) throw InputError("no track points in the GPX file");
}

void GpxRecording::addTrack(const pugi::xml_node& track) {
  std::vector<Point> points;
  bool timed = false;
  for (const auto& segment : track) {
    if (localName(segment) != "trkseg") continue;
    for (const auto& node : segment) {
      if (localName(node) != "trkpt") continue;
      points.push_back({node, ++found_});
      timed = timed || !text(child(node, "time")).empty();
    }
  }
  if (timed && !timed_) {
    timed_ = true;
    points_.clear();
  }
  if (timed == timed_) points_.insert(points_.end(), points.begin(), points.end());
}

std::optional<std::string> GpxRecording::note() const {
  if (!timed_) return "the track has no times: its points are taken one second apart";
  if (points_.size() == found_) return std::nullopt;
  return std::to_string(found_ - points_.size()) +
         " track points are passed over, as their tracks have no times";
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
  fix.coordinate.latitude = coordinate(point.node, "lat", 90);
  fix.coordinate.longitude = coordinate(point.node, "lon", 180);
  const auto hdop = number(point.node, "hdop");
  const auto vdop = number(point.node, "vdop");
  fix.altitude = number(point.node, "ele").value_or(0);
  fix.horizontalAccuracy = hdop ? *hdop * kMetresPerDop : kUsualAccuracy;
  fix.verticalAccuracy = vdop ? *vdop * kMetresPerDop : kUsualAccuracy;
  fix.speed = numberOrExtension(point.node, "speed").value_or(-1);
  fix.course = numberOrExtension(point.node, "course").value_or(-1);
  fix.timestamp = {timeOf(point)};
  return fix;
}

double GpxRecording::timeOf(const Point& point) const {
  if (!timed_) return static_cast<double>(point.number - 1);
  const std::string_view written = text(child(point.node, "time"));
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

}  // namespace wayfell
