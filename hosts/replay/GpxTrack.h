// The track points of a GPX 1.0 or 1.1 file; waypoints and routes are left aside.
//
//   horizontalAccuracy  hdop x 5 m, or else 5 m
//   verticalAccuracy    vdop x 5 m, or else 5 m
//   altitude            ele, or else 0
//   speed, course       as given (in 1.1 by an extension, such as gpxtpx:speed), or else -1
//   timestamp           time
// What is no number counts as not given.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "hosts/replay/PassedOver.h"
#include "platform/CLLocation.h"

namespace wayfell {

struct TrackPoint {
  CLLocation fix;
  bool timed = false;
  std::uint32_t line = 0;  ///< of the file, from 1

  double time() const { return fix.timestamp.timeIntervalSinceReferenceDate; }
};

struct GpxTrack {
  using Segment = std::deque<TrackPoint>;  // which takes no more memory while it grows

  GpxTrack();

  std::vector<Segment> segments;
  /// Points without a position, or with a time that cannot be read.
  PassedOver passedOver;
  /// Why the file could not be read any further.
  std::optional<std::string> fault;
};

/// Throws InputError for bytes that are no GPX file, and for a file without any point.
GpxTrack readGpxTrack(std::string bytes);

}  // namespace wayfell
