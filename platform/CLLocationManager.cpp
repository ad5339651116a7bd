#include "platform/CLLocationManager.h"

namespace wayfell {

CLLocationManager::~CLLocationManager() {
  stopUpdatingHeading();
  stopUpdatingLocation();
}

bool CLLocationManager::headingAvailable() {
  return Host::current().locationSource().headingAvailable();
}

CLAuthorizationStatus CLLocationManager::authorizationStatus() const {
  return Host::current().locationSource().authorizationStatus();
}

void CLLocationManager::requestWhenInUseAuthorization() {
  Host::current().locationSource().requestWhenInUseAuthorization(*this);
}

void CLLocationManager::startUpdatingLocation() {
  if (updatingLocation_) return;
  updatingLocation_ = true;
  Host::current().locationSource().startUpdatingLocation(*this);
}

void CLLocationManager::stopUpdatingLocation() {
  if (!updatingLocation_) return;
  updatingLocation_ = false;
  Host::current().locationSource().stopUpdatingLocation(*this);
}

void CLLocationManager::startUpdatingHeading() {
  if (updatingHeading_) return;
  updatingHeading_ = true;
  Host::current().locationSource().startUpdatingHeading(*this);
}

void CLLocationManager::stopUpdatingHeading() {
  if (!updatingHeading_) return;
  updatingHeading_ = false;
  Host::current().locationSource().stopUpdatingHeading(*this);
}

void CLLocationManager::deliverLocations(const std::vector<CLLocation>& locations) {
  if (!updatingLocation_ || locations.empty()) return;
  if (const auto receiver = delegate.lock()) {
    receiver->locationManagerDidUpdateLocations(*this, locations);
  }
}

void CLLocationManager::deliverHeading(const CLHeading& heading) {
  if (!updatingHeading_) return;
  if (const auto receiver = delegate.lock()) {
    receiver->locationManagerDidUpdateHeading(*this, heading);
  }
}

}  // namespace wayfell
