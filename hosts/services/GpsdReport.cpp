#include "hosts/services/GpsdReport.h"

#include <gps.h>

#include <cmath>
#include <cstddef>
#include <string_view>

namespace wayfell {
namespace {

// The daemon writes no longer lines.
constexpr std::size_t kLongestReport = 10240;
constexpr double kReferenceDate = 978307200;  // 2001-01-01 in Unix seconds

constexpr double kUsualAccuracy = 5;         // metres
constexpr double kUsualHeadingAccuracy = 5;  // degrees

// The daemon writes the class first, and positions and attitudes hold no reports within them.
// Others are kept from libgps 3.22, which never returns when it finds a class after something
// that it cannot read.
bool isOfClass(std::string_view line, std::string_view name) {
  constexpr std::string_view kTag = "\"class\":";
  const std::string beginning = '{' + std::string(kTag) + '"' + std::string(name) + '"';
  return line.substr(0, beginning.size()) == beginning &&
         line.find(kTag, beginning.size()) == std::string_view::npos;
}

// A time that is missing is 0, and one that cannot be read comes out as long ago.
std::optional<NSDate> dateOf(const timespec& time) {
  if (time.tv_sec <= 0) return std::nullopt;
  return NSDate{static_cast<double>(time.tv_sec) - kReferenceDate +
                static_cast<double>(time.tv_nsec) / 1e9};
}

double orElse(double value, double other) { return std::isfinite(value) ? value : other; }

double withinCircle(double degrees) {
  if (degrees < 0) return degrees + 360;
  return degrees < 360 ? degrees : degrees - 360;
}

double horizontalAccuracy(const gps_fix_t& fix) {
  return orElse(fix.eph, orElse(std::hypot(fix.epx, fix.epy), kUsualAccuracy));
}

double altitude(const gps_fix_t& fix) {
  // gpsd before 3.20 has only "altitude".
  return orElse(fix.altMSL, orElse(fix.altitude, orElse(fix.altHAE, 0)));
}

}  // namespace

GpsdDecoder::GpsdDecoder() : data_(std::make_unique<gps_data_t>()) {}
GpsdDecoder::~GpsdDecoder() = default;

GpsdReport GpsdDecoder::decode(std::string line) {
  if (line.size() > kLongestReport) return {};
  const bool position = isOfClass(line, "TPV");
  if (!position && !isOfClass(line, "ATT")) return {};
  // gps_unpack adds to the set and reports no errors; a field that it could not read is not set.
  data_->set = 0;
  gps_unpack(line.data(), data_.get());
  return position ? decodePosition() : decodeAttitude();
}

GpsdReport GpsdDecoder::decodePosition() {
  const gps_fix_t& fix = data_->fix;
  if (std::isfinite(fix.magnetic_var)) magneticVariation_ = fix.magnetic_var;
  GpsdReport report;
  if ((data_->set & TIME_SET) != 0) report.time = dateOf(fix.time);
  if (fix.mode < MODE_2D || !std::isfinite(fix.latitude) || !std::isfinite(fix.longitude)) {
    return report;
  }
  if (report.time) lastTime_ = report.time;
  if (!lastTime_) return report;
  CLLocation location;
  location.coordinate = {fix.latitude, fix.longitude};
  location.altitude = altitude(fix);
  location.horizontalAccuracy = horizontalAccuracy(fix);
  location.verticalAccuracy = fix.mode >= MODE_3D ? orElse(fix.epv, kUsualAccuracy) : -1;
  location.speed = orElse(fix.speed, -1);
  location.course = orElse(fix.track, -1);
  location.timestamp = *lastTime_;
  report.fix = location;
  return report;
}

GpsdReport GpsdDecoder::decodeAttitude() const {
  const attitude_t& attitude = data_->attitude;
  GpsdReport report;
  report.time = dateOf(attitude.mtime);
  if ((data_->set & ATTITUDE_SET) == 0 || !std::isfinite(attitude.heading)) return report;
  CLHeading heading;
  heading.trueHeading = attitude.heading;
  heading.magneticHeading = withinCircle(attitude.heading - magneticVariation_.value_or(0));
  heading.headingAccuracy = kUsualHeadingAccuracy;
  report.heading = heading;
  return report;
}

}  // namespace wayfell
