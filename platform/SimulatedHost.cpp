#include "platform/SimulatedHost.h"

#include <algorithm>
#include <utility>

namespace wayfell {

RunLoop::TimerId SimulatedRunLoop::scheduleTimer(double interval, bool repeats,
                                                 std::function<void()> action) {
  return timers_.schedule(now_.timeIntervalSinceReferenceDate, interval, repeats,
                          std::move(action));
}

void SimulatedRunLoop::cancelTimer(TimerId timer) { timers_.cancel(timer); }

std::optional<NSDate> SimulatedRunLoop::nextDueDate() const {
  const auto due = timers_.nextDue();
  return due ? std::optional(NSDate{*due}) : std::nullopt;
}

void SimulatedRunLoop::advanceTo(NSDate date) {
  double& now = now_.timeIntervalSinceReferenceDate;
  for (auto due = timers_.nextDue(); due && *due <= date.timeIntervalSinceReferenceDate;
       due = timers_.nextDue()) {
    now = std::max(now, *due);
    timers_.fireNext(*due);
  }
  now = std::max(now, date.timeIntervalSinceReferenceDate);
}

void SimulatedRunLoop::fireNext() {
  const auto due = timers_.nextDue();
  if (!due) return;
  double& now = now_.timeIntervalSinceReferenceDate;
  now = std::max(now, *due);
  timers_.fireNext(*due);
}

void SimulatedRunLoop::passOverTo(NSDate date) {
  timers_.passOver(date.timeIntervalSinceReferenceDate);
  advanceTo(date);
}

void SimulatedRunLoop::advanceBy(double seconds) {
  advanceTo({now_.timeIntervalSinceReferenceDate + seconds});
}

const PropertyValue* MemoryStore::find(std::string_view key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? nullptr : &found->second;
}

void MemoryStore::set(std::string_view key, std::optional<PropertyValue> value) {
  const auto found = values_.find(key);
  if (!value) {
    if (found != values_.end()) values_.erase(found);
  } else if (found != values_.end()) {
    found->second = *std::move(value);
  } else {
    values_.emplace(key, *std::move(value));
  }
}

void SimulatedLocationSource::requestWhenInUseAuthorization(CLLocationManager& /*manager*/) {
  ++authorizationRequests_;
}

void SimulatedLocationSource::stopUpdatingLocation(CLLocationManager& manager) {
  if (locationUser_ == &manager) locationUser_ = nullptr;
}

void SimulatedLocationSource::stopUpdatingHeading(CLLocationManager& manager) {
  if (headingUser_ == &manager) headingUser_ = nullptr;
}

void SimulatedLocationSource::deliver(const std::vector<CLLocation>& fixes) {
  if (locationUser_) locationUser_->deliverLocations(fixes);
}

void SimulatedLocationSource::deliver(const CLHeading& heading) {
  if (headingUser_) headingUser_->deliverHeading(heading);
}

void SimulatedGeocoder::reverseGeocode(const std::optional<CLLocation>& location,
                                       Completion completion) {
  ++requests_;
  lastLocation_ = location;
  if (location && answer) {
    completion(std::vector<CLPlacemark>{*answer});
  } else {
    completion(std::nullopt);
  }
}

std::optional<std::string_view> MemoryStringTable::find(std::string_view key) const {
  const auto found = translations.find(key);
  if (found == translations.end()) return std::nullopt;
  return std::string_view(found->second);
}

SimulatedHost::SimulatedHost(NSDate start) : loop(start) { install(this); }

SimulatedHost::~SimulatedHost() {
  loop.cancelAllTimers();  // what they own may still need its host to end
  install(nullptr);
}

}  // namespace wayfell
