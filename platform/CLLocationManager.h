// Turns the host's location source on and off, and hands what it reports to a delegate.
#pragma once

#include <memory>
#include <vector>

#include "platform/CLHeading.h"
#include "platform/CLLocation.h"
#include "platform/Host.h"

namespace wayfell {

class CLLocationManager;

class CLLocationManagerDelegate {
 public:
  virtual ~CLLocationManagerDelegate() = default;
  /// Fixes, oldest first; at least one.
  virtual void locationManagerDidUpdateLocations(CLLocationManager& manager,
                                                 const std::vector<CLLocation>& locations) = 0;
  virtual void locationManagerDidUpdateHeading(CLLocationManager& manager,
                                               const CLHeading& heading) = 0;
};

enum class CLActivityType { other = 1 };

/// The most accurate positions that a source can give, whatever they cost.
inline constexpr double kCLLocationAccuracyBest = -1;

class CLLocationManager {
 public:
  CLLocationManager() = default;
  /// Stops the updates that are running.
  ~CLLocationManager();
  CLLocationManager(const CLLocationManager&) = delete;
  CLLocationManager& operator=(const CLLocationManager&) = delete;

  std::weak_ptr<CLLocationManagerDelegate> delegate;
  CLActivityType activityType = CLActivityType::other;
  double desiredAccuracy = kCLLocationAccuracyBest;
  bool allowsBackgroundLocationUpdates = false;

  static bool headingAvailable();
  CLAuthorizationStatus authorizationStatus() const;
  void requestWhenInUseAuthorization();

  void startUpdatingLocation();
  void stopUpdatingLocation();
  void startUpdatingHeading();
  void stopUpdatingHeading();

  /// For location sources: what they report reaches the delegate only while it is asked for.
  void deliverLocations(const std::vector<CLLocation>& locations);
  void deliverHeading(const CLHeading& heading);

 private:
  bool updatingLocation_ = false;
  bool updatingHeading_ = false;
};

}  // namespace wayfell
