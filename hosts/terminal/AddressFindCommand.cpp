#include "hosts/terminal/AddressFindCommand.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/places/PositionText.h"
#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/AddressService.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/stores/SqliteStore.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/TextWidth.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

using Json = nlohmann::ordered_json;

CLLocationCoordinate2D positionOf(const AddressFindCommand& command) {
  std::string text;
  for (const std::string& word : command.input) text += word + ' ';
  TextScanner scanner(text);
  const CLLocationCoordinate2D position = takePosition(scanner);
  if (!scanner.atEnd()) throw std::invalid_argument(inQuotes(scanner.rest()) + " is too much");
  return position;
}

Json orNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(nullptr); }

Json json(const CNPostalAddress& address) {
  return {{"street", orNull(address.street)},
          {"city", orNull(address.city)},
          {"state", orNull(address.state)}};
}

std::string text(const CNPostalAddress& address) {
  constexpr const char* kMissing = "–";
  return address.street.value_or(kMissing) + ", " + address.city.value_or(kMissing) + ", " +
         address.state.value_or(kMissing);
}

// Of texts of others, which are not to write all over a terminal.
std::string shown(const std::string& text) { return outputIsTerminal() ? printable(text) : text; }

// Complains, and remembers that.
Warn warningTo(bool& warned) {
  return [&warned](const std::string& sentence) {
    complain(sentence);
    warned = true;
  };
}

int findInBook(const CLLocationCoordinate2D& position, bool asJson) {
  bool warned = false;
  AddressBook book(addressBookPath(), AddressBook::Missing::isWarnedAbout, warningTo(warned));
  const auto found = book.nearest(position);
  if (!found) {
    if (!warned) complain("no address within " + fixedText(AddressBook::kRadius, 0) + " m");
    return kBadInput;
  }
  Output output;
  const CNPostalAddress address = found->placemark.postalAddress.value_or(CNPostalAddress());
  if (asJson) {
    Json line = json(address);
    line["metres"] = found->distance;
    line["latitude"] = found->position.latitude;
    line["longitude"] = found->position.longitude;
    output.line(line.dump());
  } else {
    output.line(shown(text(address)));
    output.line(fixedText(found->distance, 1) + " m away, at " + plainPosition(found->position));
  }
  return output.finish(kDone);
}

int findOnline(const CLLocationCoordinate2D& position, bool asJson) {
  const SqliteStore store(localStoreFile(), SqliteStore::Access::readOnly, turnOfEachRead(),
                          complain);
  const AddressChoice choice = readAddressChoice(store);
  if (choice.service != "nominatim") {
    complain("no server has been agreed to: see wayfell addresses use --help");
    return kBadUsage;
  }
  bool warned = false;
  EventLoop loop;
  const auto geocoder = makeGeocoder(choice, loop, warningTo(warned));
  CLLocation location;
  location.coordinate = position;
  std::optional<CNPostalAddress> address;
  bool answered = false;
  geocoder->reverseGeocode(location, [&](const std::optional<std::vector<CLPlacemark>>& places) {
    if (places) address = places->front().postalAddress;
    answered = true;
    loop.stop();
  });
  if (!answered) loop.run();
  if (!address) {
    if (!warned) complain("no address");
    return kBadInput;
  }
  Output output;
  output.line(asJson ? json(*address).dump() : shown(text(*address)));
  if (!asJson) output.line(shown(geocoder->attribution()));
  return output.finish(kDone);
}

}  // namespace

int runAddressFind(const AddressFindCommand& command) {
  CLLocationCoordinate2D position;
  try {
    position = positionOf(command);
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return command.online ? findOnline(position, command.json) : findInBook(position, command.json);
}

}  // namespace wayfell
