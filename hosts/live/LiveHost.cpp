#include "hosts/live/LiveHost.h"

#include "hosts/services/texts/UserTexts.h"

namespace wayfell {
namespace {

AddressChoice chosenAddresses(const KeyValueStore* local) {
  return local ? readAddressChoice(*local) : AddressChoice{};
}

}  // namespace

LiveHost::LiveHost(IoRunLoop& loop, LocationSource& source, const Warn& warn)
    : loop_(loop),
      source_(source),
      stores_([&loop] { return loop.turn(); }, warn),
      geocoder_(makeGeocoder(chosenAddresses(stores_.standardDefaults()), loop, warn)),
      texts_(catalogueFolder(), userLanguages(), warn),
      opener_(loop, warn) {
  install(this);
}

LiveHost::~LiveHost() {
  loop_.cancelAllTimers();  // the controller among what they own, which stops its updates
  install(nullptr);
}

}  // namespace wayfell
