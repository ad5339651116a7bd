// How good a fix is: what accuracies are made of where a receiver does not give them as the
// platform has them, which is as the radius that holds about 68 % of all errors (the system's
// screen of 50 m and 70 m is made for that, too); and from which speed on its course means
// something.
#pragma once

#include <cmath>
#include <optional>

#include "platform/CLLocation.h"

namespace wayfell {

/// Where nothing is known of it, whoever reports the fix.
inline constexpr double kUsualAccuracy = 5;         // metres
inline constexpr double kUsualHeadingAccuracy = 5;  // degrees

/// A receiver's course, or -1 at a standstill, where it turns at random. What is negative is
/// unknown.
inline double courseAt(double speed, double course) {
  constexpr double kStandstill = 0.25;  // metres per second
  return speed >= 0 && speed < kStandstill ? -1 : course;
}

/// An estimate of an error, or a dilution of precision, if it is one: receivers and programs write
/// 0, less, or not-a-number where they have none. The system would drop a fix with such an
/// accuracy.
inline std::optional<double> estimate(double error) {
  return std::isfinite(error) && error > 0 ? std::optional(error) : std::nullopt;
}

/// A location that has no altitude says so by one of 0 with an invalid accuracy.
inline bool hasAltitude(const CLLocation& fix) {
  return fix.verticalAccuracy >= 0 || fix.altitude != 0;
}

/// GPX and NMEA have dilutions of precision: the accuracy is 5 m times the dilution.
inline constexpr double kMetresPerDilution = 5;

/// gpsd's estimates are meant to hold 95 % of all errors. Unconverted, its model (19 m times HDOP)
/// would have the screen refuse every fix from an HDOP of 2.7 on, as under trees and between
/// houses; converted it does from 4.3 on. A receiver that estimates its own errors may have meant
/// 68 % by them from the start; gpsd passes them on as they are, and they come out up to half too
/// small, well within the screen.
///
/// The factors are for normally distributed errors: in a plane, where a circle of radius r holds
/// 1 - exp(-r^2 / 2 sigma^2) of them, sqrt(ln 0.32 / ln 0.05); along a line 0.99446 to 1.95996
/// standard deviations. A circle made from the errors along two lines has 1.50959 times the root
/// mean square of their standard deviations, 1.50959 / (1.95996 sqrt 2).
inline double accuracyOfCircle(double error) { return 0.61673 * error; }
inline double accuracyOfLine(double error) { return 0.50739 * error; }
inline double accuracyOfTwoLines(double error, double otherError) {
  return 0.54463 * std::hypot(error, otherError);
}

}  // namespace wayfell
