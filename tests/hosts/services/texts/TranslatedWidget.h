// A whole widget whose texts come out of a given table.
#pragma once

#include <optional>
#include <string>

#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

class TranslatedWidget : public Host {
 public:
  /// The table is not kept.
  explicit TranslatedWidget(const StringTable& strings) : strings_(strings) { Host::install(this); }
  ~TranslatedWidget() override { Host::install(&host()); }

  void appear() { widget.start(); }
  void fix(double latitude, double longitude, double altitude = 0) {
    CLLocation location;
    location.coordinate = {latitude, longitude};
    location.altitude = altitude;
    location.horizontalAccuracy = 5;
    location.verticalAccuracy = 5;
    location.timestamp = NSDate::date();
    widget.apply(event::Locate{{location}});
  }
  std::optional<std::string> text(const char* label) {
    return widget.interface().label(label).text();
  }
  SimulatedHost& host() { return widget.host(); }

  RunLoop& runLoop() override { return host().runLoop(); }
  Clock& clock() override { return host().clock(); }
  KeyValueStore* standardDefaults() override { return host().standardDefaults(); }
  KeyValueStore* sharedDefaults(std::string_view suite) override {
    return host().sharedDefaults(suite);
  }
  KeyValueStore* ubiquitousDefaults() override { return host().ubiquitousDefaults(); }
  LocationSource& locationSource() override { return host().locationSource(); }
  ReverseGeocoder& reverseGeocoder() override { return host().reverseGeocoder(); }
  const StringTable& stringTable() override { return strings_; }
  UrlOpener& urlOpener() override { return host().urlOpener(); }

  ReplayedWidget widget;

 private:
  const StringTable& strings_;
};

}  // namespace wayfell
