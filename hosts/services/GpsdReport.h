// Reads the reports that the gpsd daemon writes, one JSON object a line: positions (class TPV)
// and headings (class ATT). All others, and whatever cannot be read, hold nothing for us.
//
// A TPV report is a fix when its mode is 2 or 3 and it has latitude and longitude.
//   timestamp           its time, or that of the last fix that had one; until there has been a
//                       time, fixes are passed over
//   altitude            above mean sea level, or else above the ellipsoid, or else 0
//   horizontalAccuracy  eph, or else that of epx and epy together, or else 5 m
//   verticalAccuracy    epv, or else 5 m; -1 without a 3D fix
//   speed, course       speed and track, or else -1
// An ATT report with a heading is a heading.
//   trueHeading         heading, which gpsd gives from true north
//   magneticHeading     less the magnetic variation (east positive) of the last TPV that had one;
//                       without one the true heading. gpsd's own magtrack is a course made
//                       good, and not used.
//   headingAccuracy     5 degrees, as gpsd estimates none
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/CLHeading.h"
#include "platform/CLLocation.h"
#include "platform/NSDate.h"

struct gps_data_t;

namespace wayfell {

/// Holds one of fix and heading, or neither.
struct GpsdReport {
  std::optional<CLLocation> fix;
  std::optional<CLHeading> heading;
  /// When it was taken, if the report says so.
  std::optional<NSDate> time;
};

/// For one stream of reports: what a report lacks comes from those before it.
class GpsdDecoder {
 public:
  GpsdDecoder();
  ~GpsdDecoder();
  GpsdDecoder(const GpsdDecoder&) = delete;
  GpsdDecoder& operator=(const GpsdDecoder&) = delete;

  GpsdReport decode(std::string line);

 private:
  GpsdReport decodePosition();
  GpsdReport decodeAttitude() const;

  std::unique_ptr<gps_data_t> data_;  // large
  std::optional<NSDate> lastTime_;
  std::optional<double> magneticVariation_;  // degrees, east positive
};

}  // namespace wayfell
