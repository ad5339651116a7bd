// Reads the reports that the gpsd daemon writes, one JSON object a line: positions (class TPV)
// and headings (class ATT). All others, and whatever cannot be read, hold nothing for us.
//
// A TPV report is a fix when its mode is 2 or 3 and it has latitude and longitude; GpsdFix says
// what becomes of it. An ATT report with a heading within the circle is a heading:
//   trueHeading         heading, which gpsd gives from true north
//   magneticHeading     less the magnetic variation of the last TPV that had one; without one the
//                       true heading. East is positive in what gpsd writes, whatever its manual
//                       says. Its own magtrack has the other sign, and is a course made good.
//   headingAccuracy     5 degrees, as gpsd estimates none; -1 where the compass says that it is
//                       being calibrated or measures nonsense (mag_st C, L, P or V)
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/services/location/GpsdFix.h"
#include "platform/CLHeading.h"

struct gps_data_t;

namespace wayfell {

struct GpsdReport {
  enum class Kind { other, position, attitude };
  Kind kind = Kind::other;
  /// What a report of a position says; none while the receiver has no fix.
  std::optional<GpsdFix> fix;
  /// What a report of an attitude says.
  std::optional<CLHeading> heading;
  /// When it was taken, if the report says so.
  std::optional<NSDate> time;
  /// The receiver's path, if the report says so. It stays valid until the next report.
  std::string_view device;
};

/// For one stream of reports: the variation that headings lack comes from positions before them.
class GpsdDecoder {
 public:
  GpsdDecoder();
  ~GpsdDecoder();

  GpsdReport decode(std::string line);

 private:
  GpsdReport decodePosition();
  GpsdReport decodeAttitude() const;

  std::unique_ptr<gps_data_t> data_;         // large
  std::optional<double> magneticVariation_;  // degrees, east positive
};

}  // namespace wayfell
