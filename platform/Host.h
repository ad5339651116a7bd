// What the system needs from the place it runs in. A host is one object that hands out these
// narrow services; the platform's classes (NSTimer, NSUserDefaults, CLLocationManager ...) reach
// them through Host::current().
//
// Everything happens on one thread: services call back only from the run loop's thread.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CLLocation.h"
#include "platform/CLPlacemark.h"
#include "platform/NSDate.h"
#include "platform/NSURL.h"
#include "platform/PropertyValue.h"

namespace wayfell {

class CLLocationManager;

/// Whether the user lets the program see positions. The numbers are the platform's.
enum class CLAuthorizationStatus {
  notDetermined = 0,
  restricted = 1,
  denied = 2,
  authorizedAlways = 3,
  authorizedWhenInUse = 4,
};

/// Timers. Two due at the same instant fire in the order in which they were scheduled.
class RunLoop {
 public:
  using TimerId = std::uint64_t;

  virtual ~RunLoop() = default;
  /// Calls the action after `interval` seconds, or every `interval` seconds counted from now, so
  /// that a late firing does not delay the next ones.
  virtual TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) = 0;
  /// The action is released and never called again. Unknown and ended timers are ignored.
  virtual void cancelTimer(TimerId timer) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual NSDate now() const = 0;
};

class KeyValueStore {
 public:
  virtual ~KeyValueStore() = default;
  /// The value as last written by anyone, or null. It stays valid until the next call.
  virtual const PropertyValue* find(std::string_view key) const = 0;
  /// Writes the value; none removes the key.
  virtual void set(std::string_view key, std::optional<PropertyValue> value) = 0;
};

/// Where positions and headings come from. Deliver them with CLLocationManager::deliver...,
/// and only between a start and its stop.
class LocationSource {
 public:
  virtual ~LocationSource() = default;
  virtual bool headingAvailable() const = 0;
  virtual CLAuthorizationStatus authorizationStatus() const = 0;
  virtual void requestWhenInUseAuthorization(CLLocationManager& manager) = 0;
  virtual void startUpdatingLocation(CLLocationManager& manager) = 0;
  virtual void stopUpdatingLocation(CLLocationManager& manager) = 0;
  virtual void startUpdatingHeading(CLLocationManager& manager) = 0;
  virtual void stopUpdatingHeading(CLLocationManager& manager) = 0;
};

class ReverseGeocoder {
 public:
  /// Called once with the places found, best first and never an empty list, or with none when
  /// the lookup failed, as it does without a location. It may be called before the request returns,
  /// and is not called any more once the geocoder is gone.
  using Completion = std::function<void(const std::optional<std::vector<CLPlacemark>>&)>;

  virtual ~ReverseGeocoder() = default;
  virtual void reverseGeocode(const std::optional<CLLocation>& location, Completion completion) = 0;
};

/// Translations, keyed by the English text.
class StringTable {
 public:
  virtual ~StringTable() = default;
  /// The translation, or none. It stays valid as long as the table.
  virtual std::optional<std::string_view> find(std::string_view key) const = 0;
};

class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  /// A request made with no URL is passed on as none. Returns whether something opened it.
  virtual bool openURL(const std::optional<NSURL>& url) = 0;
};

class Host {
 public:
  virtual ~Host() = default;

  virtual RunLoop& runLoop() = 0;
  virtual Clock& clock() = 0;
  /// The process's own settings; null when there are none.
  virtual KeyValueStore* standardDefaults() = 0;
  /// Settings shared under a name by several programs; null when there are none.
  virtual KeyValueStore* sharedDefaults(std::string_view suiteName) = 0;
  /// The user's settings in the cloud, never written to; null when there are none.
  virtual KeyValueStore* ubiquitousDefaults() = 0;
  virtual LocationSource& locationSource() = 0;
  virtual ReverseGeocoder& reverseGeocoder() = 0;
  virtual const StringTable& stringTable() = 0;
  virtual UrlOpener& urlOpener() = 0;

  /// The host in use. Installing one replaces the other; none is owned.
  static void install(Host* host);
  /// Throws std::logic_error while no host is installed.
  static Host& current();
  /// Null while no host is installed.
  static Host* installed();
};

}  // namespace wayfell
