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
#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "hosts/replay/Recording.h"

namespace wayfell {

class GpxRecording : public Recording {
 public:
  /// The file is held in memory. Longer ones are refused.
  static constexpr std::size_t kLongestFile = std::size_t{64} << 20U;

  /// Throws InputError for a text that is no GPX file, or one without track points.
  explicit GpxRecording(const std::string& xml);

  /// Errors name the point, counted from 1 throughout the file, and what is wrong with it.
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

}  // namespace wayfell
