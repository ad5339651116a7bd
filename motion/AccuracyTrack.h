// The running mean of the horizontal and vertical accuracy of the last 30 fixes.
//
// Nothing is filtered: a fix with a negative, that is invalid, accuracy is averaged like any other.
#pragma once

#include <vector>

#include "platform/CLLocation.h"

namespace wayfell {

class AccuracyTrack {
 public:
  double averageHorizontalAccuracy() const;
  void setAverageHorizontalAccuracy(double metres);
  double averageVerticalAccuracy() const;
  void setAverageVerticalAccuracy(double metres);
  /// Newest first, at most 30.
  std::vector<CLLocation>& locations();
  void setLocations(std::vector<CLLocation> locations);
  double horizontalSum() const;
  void setHorizontalSum(double metres);
  double verticalSum() const;
  void setVerticalSum(double metres);

  /// Adds the fix, forgets the 31st, and updates both means.
  void addLocation(const CLLocation& location);
};

}  // namespace wayfell
