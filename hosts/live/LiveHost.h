// The host of a widget in use: settings and addresses on the disk, the user's language, the
// machine's clock and desktop. Installed as the current host from construction to destruction.
#pragma once

#include <memory>

#include "hosts/live/SystemClock.h"
#include "hosts/live/WidgetTimers.h"
#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/DesktopUrlOpener.h"
#include "hosts/services/Warn.h"
#include "hosts/services/addresses/AddressService.h"
#include "hosts/services/stores/Stores.h"
#include "hosts/services/texts/CatalogueTexts.h"

namespace wayfell {

class LiveHost : public Host {
 public:
  /// The loop and the source must outlive the host.
  LiveHost(IoRunLoop& loop, LocationSource& source, const Warn& warn);
  ~LiveHost() override;
  LiveHost(const LiveHost&) = delete;
  LiveHost& operator=(const LiveHost&) = delete;

  RunLoop& runLoop() override { return timers_; }
  Clock& clock() override { return systemClock(); }
  KeyValueStore* standardDefaults() override { return stores_.standardDefaults(); }
  KeyValueStore* sharedDefaults(std::string_view suiteName) override {
    return stores_.sharedDefaults(suiteName);
  }
  KeyValueStore* ubiquitousDefaults() override { return stores_.ubiquitousDefaults(); }
  LocationSource& locationSource() override { return source_; }
  AttributedGeocoder& reverseGeocoder() override { return *geocoder_; }
  const StringTable& stringTable() override { return texts_; }
  UrlOpener& urlOpener() override { return opener_; }

  /// Ends the timers of the widget, and with them what only they have kept.
  void endTimers() { timers_.cancelAll(); }

 private:
  WidgetTimers timers_;
  LocationSource& source_;
  CatalogueTexts texts_;
  /// Before the services, which tell what is wrong with them in the user's language.
  struct Installation {
    explicit Installation(LiveHost& host) { install(&host); }
    ~Installation() { install(nullptr); }
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
  } installation_{*this};
  Stores stores_;
  std::unique_ptr<AttributedGeocoder> geocoder_;
  DesktopUrlOpener opener_;
};

}  // namespace wayfell
