// Hears of each new speed that a VelocityManager publishes.
#pragma once

namespace wayfell {

class VelocityManagerDelegate {
 public:
  virtual ~VelocityManagerDelegate() = default;
  /// Metres per second.
  virtual void velocityManagerDidUpdateSpeed(double averageSpeed) = 0;
};

}  // namespace wayfell
