// A compass reading.
#pragma once

namespace wayfell {

struct CLHeading {
  /// Degrees clockwise from true north; negative when unknown.
  double trueHeading = -1;
  /// Degrees clockwise from magnetic north.
  double magneticHeading = 0;
  /// Degrees by which the magnetic heading may be off; negative when the reading is invalid.
  double headingAccuracy = -1;

  friend bool operator==(const CLHeading&, const CLHeading&) = default;
};

}  // namespace wayfell
