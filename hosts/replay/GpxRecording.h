// The track points of a GPX 1.0 or 1.1 file, one fix each; waypoints and routes are left aside.
//
//   horizontalAccuracy  hdop x 5 m, or else 5 m
//   verticalAccuracy    vdop x 5 m, or else 5 m; -1 for a point without ele
//   altitude            ele, or else 0
//   speed, course       as given (in 1.1 by an extension, such as gpxtpx:speed), or else -1
//   t and timestamp     time
// When no point has a time, they are one second apart from the reference date on. Otherwise each
// must have one, and none may be earlier than that of the point before.
#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>

#include "hosts/replay/Recording.h"

namespace wayfell {

class GpxRecording : public Recording {
 public:
  /// The file is held in memory. Longer ones are refused.
  static constexpr std::size_t kLongestFile = std::size_t{256} << 20U;

  /// Throws InputError for a text that is no GPX file, or one without track points.
  explicit GpxRecording(const std::string& xml);

  /// Errors name the point, counted from 1 throughout the file, and what is wrong with it.
  std::optional<Event> next() override;
  std::optional<std::string> note() const override;

 private:
  CLLocation readPoint(const pugi::xml_node& point) const;
  double timeOf(const pugi::xml_node& point) const;

  pugi::xml_document document_;
  pugi::xml_node point_;    // the next one; null at the end
  std::size_t number_ = 1;  // of that point
  bool timed_ = false;
  std::optional<double> lastTime_;
};

}  // namespace wayfell
