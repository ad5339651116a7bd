#include "hosts/services/location/GpsdReport.h"

#include <gps.h>

#include <cmath>
#include <cstddef>
#include <string_view>

#include "hosts/services/location/FixQuality.h"
#include "hosts/services/location/GpsdNotice.h"

namespace wayfell {
namespace {

// The daemon writes no longer lines.
constexpr std::size_t kLongestReport = 10240;
constexpr double kReferenceDate = 978307200;  // 2001-01-01 in Unix seconds

// Positions and attitudes hold no reports within them. Others are kept from libgps 3.22, which
// never returns when it finds a class after something that it cannot read.
bool isFlat(std::string_view line) {
  constexpr std::string_view kTag = "\"class\"";
  return line.find(kTag, kTag.size()) == std::string_view::npos;
}

// libgps knows no blanks around the class, which reports have that other programs have passed on.
void closeUpBeginning(std::string& line, std::string_view className) {
  line.replace(0, line.find(className), "{\"class\":\"");
}

// gpsd 3.22 misplaces the commas around the time of an attitude, which has one where the receiver
// also estimates its errors: {"class":"ATT","device":"...",,"time":"...""heading":90.000 ...
void mendCommas(std::string& line) {
  const std::size_t time = line.find(",,\"time\":\"");
  if (time == std::string::npos) return;
  line.erase(time, 1);
  const std::size_t end = line.find("\"\"", time);
  if (end != std::string::npos) line.insert(end + 1, 1, ',');
}

// A time that is missing is 0, and one that cannot be read comes out as long ago.
std::optional<NSDate> dateOf(const timespec& time) {
  if (time.tv_sec <= 0) return std::nullopt;
  return NSDate{static_cast<double>(time.tv_sec) - kReferenceDate +
                static_cast<double>(time.tv_nsec) / 1e9};
}

// A leap second, 23:59:60, comes out as the second after it, and would pass for the same instant.
// So it is pressed into the second half of the second before.
bool isLeapSecond(std::string_view line) { return line.find("T23:59:60") != std::string::npos; }

NSDate beforeMidnight(NSDate time) {
  const double seconds = time.timeIntervalSinceReferenceDate;
  return {std::floor(seconds) - 0.5 + (seconds - std::floor(seconds)) / 2};
}

std::optional<double> known(double value) {
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

double withinCircle(double degrees) {
  if (degrees < 0) return degrees + 360;
  return degrees < 360 ? degrees : degrees - 360;
}

std::optional<double> altitude(const gps_fix_t& fix) {
  if (std::isfinite(fix.altMSL)) return fix.altMSL;
  if (std::isfinite(fix.altitude)) return fix.altitude;  // gpsd before 3.20 has only "alt"
  return known(fix.altHAE - fix.geoid_sep);
}

bool isOutOfOrder(char status) {
  return std::string_view("CLPV").find(status) != std::string::npos;
}

}  // namespace

GpsdDecoder::GpsdDecoder() : data_(std::make_unique<gps_data_t>()) {}
GpsdDecoder::~GpsdDecoder() = default;

GpsdReport GpsdDecoder::decode(std::string line) {
  if (line.size() > kLongestReport) return {};
  const bool position = isGpsdObject(line, "TPV");
  if (!position && !isGpsdObject(line, "ATT")) return {};
  closeUpBeginning(line, position ? "TPV" : "ATT");
  if (!isFlat(line)) return {};
  // gps_unpack adds to the set and reports no errors; a field that it could not read is not set.
  data_->set = 0;
  data_->dev.path[0] = '\0';
  if (!position) mendCommas(line);
  gps_unpack(line.data(), data_.get());
  GpsdReport report = position ? decodePosition() : decodeAttitude();
  if (report.time && isLeapSecond(line)) report.time = beforeMidnight(*report.time);
  if (report.fix) report.fix->time = report.time;
  report.device = data_->dev.path;
  return report;
}

GpsdReport GpsdDecoder::decodePosition() {
  const gps_fix_t& fix = data_->fix;
  if (std::isfinite(fix.magnetic_var)) magneticVariation_ = fix.magnetic_var;
  GpsdReport report;
  report.kind = GpsdReport::Kind::position;
  if ((data_->set & TIME_SET) != 0) report.time = dateOf(fix.time);
  if (fix.mode < MODE_2D || !std::isfinite(fix.latitude) || !std::isfinite(fix.longitude)) {
    return report;
  }
  GpsdFix& found = report.fix.emplace();
  found.coordinate = {fix.latitude, fix.longitude};
  found.threeDimensional = fix.mode >= MODE_3D;
  found.altitude = altitude(fix);
  found.heightAboveEllipsoid = known(fix.altHAE);
  found.horizontalError = estimate(fix.eph);
  found.eastError = estimate(fix.epx);
  found.northError = estimate(fix.epy);
  found.verticalError = estimate(fix.epv);
  found.speed = known(fix.speed);
  found.track = known(fix.track);
  return report;
}

GpsdReport GpsdDecoder::decodeAttitude() const {
  const attitude_t& attitude = data_->attitude;
  GpsdReport report;
  report.kind = GpsdReport::Kind::attitude;
  report.time = dateOf(attitude.mtime);
  // What is not in the report comes out as not-a-number.
  const bool isHeading = attitude.heading >= 0 && attitude.heading <= 360;
  if ((data_->set & ATTITUDE_SET) == 0 || !isHeading) return report;
  CLHeading heading;
  heading.trueHeading = withinCircle(attitude.heading);
  heading.magneticHeading = withinCircle(attitude.heading - magneticVariation_.value_or(0));
  heading.headingAccuracy = isOutOfOrder(attitude.mag_st) ? -1 : kUsualHeadingAccuracy;
  report.heading = heading;
  return report;
}

}  // namespace wayfell
