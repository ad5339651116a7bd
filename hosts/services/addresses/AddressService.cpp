#include "hosts/services/addresses/AddressService.h"

#include <stdexcept>

#include "hosts/services/UserLocale.h"
#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/addresses/Nominatim.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

std::optional<std::string> textOf(const KeyValueStore& store, const char* key) {
  const PropertyValue* const value = store.find(key);
  return value == nullptr ? std::nullopt : value->stringValue();
}

// "turns-nominatim.openstreetmap.org" in the data folder of the stores.
std::filesystem::path turnsFile(const ServerUrl& server) {
  std::string name = server.shown();
  name.erase(0, name.find("://") + 3);
  for (char& c : name) {
    if (c == '/' || c == ':') c = '-';
  }
  return dataFolder() / ("turns-" + name);
}

std::unique_ptr<AttributedGeocoder> serviceOf(const AddressChoice& choice, IoRunLoop& loop,
                                              const Warn& warn) {
  using Missing = AddressBook::Missing;
  if (!choice.service) {
    return std::make_unique<AddressBook>(addressBookPath(), Missing::isFine, warn);
  }
  if (choice.service == "book") {
    return std::make_unique<AddressBook>(addressBookPath(), Missing::isWarnedAbout, warn);
  }
  if (choice.service == "nominatim") {
    const ServerUrl server(choice.url.value_or(Nominatim::kPublicServer));
    return std::make_unique<Nominatim>(loop, server, turnsFile(server),
                                       acceptLanguage(userLocale()), warn);
  }
  if (choice.service == "none") return std::make_unique<NoGeocoder>();
  throw std::invalid_argument(inQuotes(*choice.service) + " is none of book, nominatim and none");
}

}  // namespace

AddressChoice readAddressChoice(const KeyValueStore& local) {
  return {textOf(local, AddressChoice::kServiceKey), textOf(local, AddressChoice::kUrlKey)};
}

std::unique_ptr<AttributedGeocoder> makeGeocoder(const AddressChoice& choice, IoRunLoop& loop,
                                                 const Warn& warn) {
  try {
    return serviceOf(choice, loop, warn);
  } catch (const std::exception& error) {
    warn(localizedStringWithFormat("addresses: %@; there are none", error.what()));
  }
  return std::make_unique<NoGeocoder>();
}

}  // namespace wayfell
