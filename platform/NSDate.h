// An instant, and spans between instants in seconds.
#pragma once

namespace wayfell {

struct NSDate {
  /// Seconds since 2001-01-01 00:00 UTC, the reference date; negative before it.
  double timeIntervalSinceReferenceDate = 0;

  /// Now, by the host's clock.
  static NSDate date();

  /// Seconds from the other instant to this one.
  double timeIntervalSinceDate(NSDate other) const {
    return timeIntervalSinceReferenceDate - other.timeIntervalSinceReferenceDate;
  }
  /// Seconds from now to this instant: negative for the past.
  double timeIntervalSinceNow() const;

  friend bool operator==(NSDate, NSDate) = default;
};

}  // namespace wayfell
