// `wayfell addresses find`: the address of a position.
#include <memory>
#include <optional>
#include <stdexcept>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/places/PositionText.h"
#include "hosts/places/PositionWords.h"
#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/AddressService.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/stores/SqliteStore.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/UserNotation.h"
#include "hosts/text/JsonWriter.h"
#include "hosts/text/TextWidth.h"
#include "platform/NSString.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

// What the command line asks for.
struct AddressFindCommand {
  std::vector<std::string> input;  // one position
  bool online = false;             // asks the server that the user has chosen, not the book
  bool json = false;
};

// How near to the position an address of the book must be.
std::string radiusText() { return "within " + fixedText(AddressBook::kRadius, 0) + " m"; }

// The address as members of an object.
void write(JsonWriter& json, const CNPostalAddress& address) {
  json.member("street", address.street).member("city", address.city);
  json.member("state", address.state);
}

std::string text(const CNPostalAddress& address) {
  constexpr const char* kMissing = "–";
  return address.street.value_or(kMissing) + ", " + address.city.value_or(kMissing) + ", " +
         address.state.value_or(kMissing);
}

// Other people's texts are not to write all over a terminal.
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
    if (!warned) complain("no address " + radiusText());
    return kBadInput;
  }
  Output output;
  const CNPostalAddress address = found->placemark.postalAddress.value_or(CNPostalAddress());
  if (asJson) {
    JsonWriter line;
    write(line.beginObject(), address);
    line.member("metres", found->distance).member("latitude", found->position.latitude);
    line.member("longitude", found->position.longitude).endObject();
    output.line(line.text());
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
  if (asJson) {
    JsonWriter line;
    write(line.beginObject(), *address);
    output.line(line.endObject().text());
  } else {
    output.line(shown(text(*address)));
    output.line(shown(geocoder->attribution()));
  }
  return output.finish(kDone);
}

int find(const AddressFindCommand& command) {
  CLLocationCoordinate2D position;
  try {
    const SimulatedHost onDefaultDatum;
    position = onePosition(command.input, userNotation());
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return command.online ? findOnline(position, command.json) : findInBook(position, command.json);
}

}  // namespace

Command addressFindCommand() {
  const auto command = std::make_shared<AddressFindCommand>();
  return {.name = "find",
          .help = "Finds the address of a position, " + radiusText(),
          .more =
              "Examples:\n"
              "  wayfell addresses find 38.8670 -76.9792\n"
              "  wayfell addresses find --json \"48 12.492 N 16 22.428 E\"\n"
              "Exit status: 0 found, 1 no address, 2 the command line is wrong.",
          .options = {{.name = "POSITION",
                       .help = kPositionHelp,
                       .target = &command->input,
                       .isRequired = true},
                      {"--online", "Ask the server that was agreed to, instead of the book",
                       &command->online},
                      {"--json", "Print a JSON object", &command->json}},
          .run = [command] { return find(*command); }};
}

}  // namespace wayfell
