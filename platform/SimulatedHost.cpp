#include "platform/SimulatedHost.h"

#include <algorithm>
#include <utility>

namespace wayfell {

RunLoop::TimerId SimulatedRunLoop::scheduleTimer(double interval, bool repeats,
                                                 std::function<void()> action) {
  const double start = now_.timeIntervalSinceReferenceDate;
  timers_.emplace(++lastId_,
                  Timer{start, interval, repeats, 0, start + interval, std::move(action)});
  return lastId_;
}

void SimulatedRunLoop::cancelTimer(TimerId timer) {
  // The action may own what is running just now: it goes only after the map is in order again.
  const auto ended = timers_.extract(timer);
}

void SimulatedRunLoop::cancelAllTimers() { const Timers ended = std::exchange(timers_, {}); }

SimulatedRunLoop::Timers::iterator SimulatedRunLoop::nextDue() {
  // min_element gives the first of equals, which is the one created first.
  return std::min_element(timers_.begin(), timers_.end(), isDueBefore);
}

std::optional<NSDate> SimulatedRunLoop::nextDueDate() const {
  const auto next = std::min_element(timers_.begin(), timers_.end(), isDueBefore);
  if (next == timers_.end()) return std::nullopt;
  return NSDate{next->second.due};
}

void SimulatedRunLoop::advanceTo(NSDate date) {
  for (auto next = nextDue();
       next != timers_.end() && next->second.due <= date.timeIntervalSinceReferenceDate;
       next = nextDue()) {
    Timer& timer = next->second;
    now_.timeIntervalSinceReferenceDate = std::max(now_.timeIntervalSinceReferenceDate, timer.due);
    if (timer.repeats) {
      timer.firings += 1;
      timer.due = timer.start + (timer.firings + 1) * timer.interval;
      // Out of the map while it runs, because the action may cancel its own timer.
      const TimerId id = next->first;
      auto action = std::move(timer.action);
      action();
      const auto again = timers_.find(id);
      if (again != timers_.end()) again->second.action = std::move(action);
    } else {
      const auto ended = timers_.extract(next);
      ended.mapped().action();
    }
  }
  now_.timeIntervalSinceReferenceDate =
      std::max(now_.timeIntervalSinceReferenceDate, date.timeIntervalSinceReferenceDate);
}

void SimulatedRunLoop::advanceBy(double seconds) {
  advanceTo({now_.timeIntervalSinceReferenceDate + seconds});
}

std::size_t SimulatedRunLoop::timersWithInterval(double interval) const {
  return static_cast<std::size_t>(
      std::count_if(timers_.begin(), timers_.end(),
                    [interval](const auto& entry) { return entry.second.interval == interval; }));
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
  if (answer) {
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
