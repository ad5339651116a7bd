// A host without a machine under it, for replays and tests: time moves when it is told to, stores
// are in memory, and fixes, headings and addresses are what the caller says they are.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/CLHeading.h"
#include "platform/CLLocationManager.h"
#include "platform/Host.h"
#include "platform/TimerQueue.h"

namespace wayfell {

/// A clock and its timers. Firing dates are start + n x interval, so they do not drift.
class SimulatedRunLoop : public RunLoop, public Clock {
 public:
  explicit SimulatedRunLoop(NSDate start = {}) : now_(start) {}

  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) override;
  void cancelTimer(TimerId timer) override;
  NSDate now() const override { return now_; }

  void cancelAllTimers() { timers_.cancelAll(); }

  /// Sets the clock; for before the first timer.
  void startAt(NSDate start) { now_ = start; }
  /// Fires what is due up to and at the date, in order, then sets the clock to it. The clock
  /// never goes back.
  void advanceTo(NSDate date);
  void advanceBy(double seconds);
  /// When the next timer fires; none without timers.
  std::optional<NSDate> nextDueDate() const;
  /// Goes on to when the next timer is due and fires that one alone.
  void fireNext();
  /// As advanceTo, for those who know that no repeating timer does anything until then: none fires.
  void passOverTo(NSDate date);
  /// Within how many seconds each timer fires; none if there is none, or if one fires only once.
  std::optional<double> period() const { return timers_.period(); }

  std::size_t timersWithInterval(double interval) const {
    return timers_.countWithInterval(interval);
  }

 private:
  NSDate now_;
  TimerQueue timers_;
};

class MemoryStore : public KeyValueStore {
 public:
  using Values = PropertyValue::Dictionary;

  const PropertyValue* find(std::string_view key) const override;
  void set(std::string_view key, std::optional<PropertyValue> value) override;
  const Values& values() const { return values_; }

 private:
  Values values_;
};

/// Delivers what it is given, to the manager that has asked for it.
class SimulatedLocationSource : public LocationSource {
 public:
  bool hasCompass = true;
  CLAuthorizationStatus status = CLAuthorizationStatus::authorizedWhenInUse;

  bool headingAvailable() const override { return hasCompass; }
  CLAuthorizationStatus authorizationStatus() const override { return status; }
  /// Grants nothing by itself.
  void requestWhenInUseAuthorization(CLLocationManager& manager) override;
  void startUpdatingLocation(CLLocationManager& manager) override { locationUser_ = &manager; }
  void stopUpdatingLocation(CLLocationManager& manager) override;
  void startUpdatingHeading(CLLocationManager& manager) override { headingUser_ = &manager; }
  void stopUpdatingHeading(CLLocationManager& manager) override;

  void deliver(const std::vector<CLLocation>& fixes);
  void deliver(const CLHeading& heading);
  bool updatingLocation() const { return locationUser_ != nullptr; }
  bool updatingHeading() const { return headingUser_ != nullptr; }
  int authorizationRequests() const { return authorizationRequests_; }

 private:
  CLLocationManager* locationUser_ = nullptr;
  CLLocationManager* headingUser_ = nullptr;
  int authorizationRequests_ = 0;
};

/// Answers every location at once with the same placemark, and fails while there is none.
class SimulatedGeocoder : public ReverseGeocoder {
 public:
  std::optional<CLPlacemark> answer;

  void reverseGeocode(const std::optional<CLLocation>& location, Completion completion) override;
  int requests() const { return requests_; }
  const std::optional<CLLocation>& lastLocation() const { return lastLocation_; }

 private:
  int requests_ = 0;
  std::optional<CLLocation> lastLocation_;
};

class MemoryStringTable : public StringTable {
 public:
  std::map<std::string, std::string, std::less<>> translations;
  std::optional<std::string_view> find(std::string_view key) const override;
};

/// Keeps what it was asked to open.
class RecordingUrlOpener : public UrlOpener {
 public:
  bool openURL(const std::optional<NSURL>& url) override {
    requests.push_back(url);
    return url.has_value();
  }
  std::vector<std::optional<NSURL>> requests;
};

/// All of them together, installed as the current host from construction to destruction. It
/// outlives whatever runs on it, except what only its timers own.
class SimulatedHost : public Host {
 public:
  explicit SimulatedHost(NSDate start = {});
  ~SimulatedHost() override;
  SimulatedHost(const SimulatedHost&) = delete;
  SimulatedHost& operator=(const SimulatedHost&) = delete;

  SimulatedRunLoop loop;
  MemoryStore local;
  MemoryStore suite;
  MemoryStore cloud;
  SimulatedLocationSource location;
  SimulatedGeocoder geocoder;
  MemoryStringTable strings;
  /// In place of `strings`, for a replay that someone watches in a language of their own.
  const StringTable* translations = &strings;
  RecordingUrlOpener urls;
  /// Whether the host has each store at all.
  bool hasLocal = true;
  bool hasSuite = true;
  bool hasCloud = false;

  RunLoop& runLoop() override { return loop; }
  Clock& clock() override { return loop; }
  KeyValueStore* standardDefaults() override { return hasLocal ? &local : nullptr; }
  KeyValueStore* sharedDefaults(std::string_view /*suiteName*/) override {
    return hasSuite ? &suite : nullptr;
  }
  KeyValueStore* ubiquitousDefaults() override { return hasCloud ? &cloud : nullptr; }
  LocationSource& locationSource() override { return location; }
  ReverseGeocoder& reverseGeocoder() override { return geocoder; }
  const StringTable& stringTable() override { return *translations; }
  UrlOpener& urlOpener() override { return urls; }
};

}  // namespace wayfell
