// The running mean of the horizontal and vertical accuracy of the last 30 fixes.
//
// Nothing is filtered: a fix with a negative, that is invalid, accuracy is averaged like any other.
#pragma once

#include <utility>
#include <vector>

#include "platform/CLLocation.h"

namespace wayfell {

class AccuracyTrack {
 public:
  /// Metres; 0 before the first fix.
  double averageHorizontalAccuracy() const { return averageHorizontalAccuracy_; }
  void setAverageHorizontalAccuracy(double metres) { averageHorizontalAccuracy_ = metres; }
  double averageVerticalAccuracy() const { return averageVerticalAccuracy_; }
  void setAverageVerticalAccuracy(double metres) { averageVerticalAccuracy_ = metres; }
  /// Newest first, at most 30.
  std::vector<CLLocation>& locations() { return locations_; }
  void setLocations(std::vector<CLLocation> locations) { locations_ = std::move(locations); }
  double horizontalSum() const { return horizontalSum_; }
  void setHorizontalSum(double metres) { horizontalSum_ = metres; }
  double verticalSum() const { return verticalSum_; }
  void setVerticalSum(double metres) { verticalSum_ = metres; }

  /// Adds the fix, which may be one of `locations`, forgets the 31st, and updates both means.
  void addLocation(CLLocation location);

 private:
  double averageHorizontalAccuracy_ = 0;
  double averageVerticalAccuracy_ = 0;
  std::vector<CLLocation> locations_;
  double horizontalSum_ = 0;
  double verticalSum_ = 0;
};

}  // namespace wayfell
