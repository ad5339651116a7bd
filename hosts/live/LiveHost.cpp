#include "hosts/live/LiveHost.h"

#include "hosts/services/texts/UserTexts.h"

namespace wayfell {
namespace {

AddressChoice chosenAddresses(const KeyValueStore* local) {
  return local ? readAddressChoice(*local) : AddressChoice{};
}

}  // namespace

LiveHost::LiveHost(IoRunLoop& loop, LocationSource& source, const Warn& warn)
    : timers_(loop),
      source_(source),
      texts_(userTexts(warn)),
      stores_([&loop] { return loop.turn(); }, warn),
      geocoder_(makeGeocoder(chosenAddresses(stores_.standardDefaults()), loop, warn)),
      opener_(loop, warn) {}

LiveHost::~LiveHost() {
  // Timers and the lookup under way own controllers, which need their host to stop their updates.
  endTimers();
  geocoder_.reset();
}

}  // namespace wayfell
