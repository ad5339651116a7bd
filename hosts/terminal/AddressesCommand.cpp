// `wayfell addresses`: where addresses come from.
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/AddressService.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/addresses/Nominatim.h"
#include "hosts/services/stores/SqliteStore.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "platform/NSString.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr const char* kAddressesMore =
    "Examples:\n"
    "  wayfell addresses import us/dc/statewide.csv\n"
    "  wayfell addresses find 38.8670 -76.9792\n"
    "  wayfell addresses info\n"
    "Exit status: 0 done, 1 something is bad or not found, 2 the command line is wrong.";

constexpr const char* kUseMore =
    "SERVICE is book (addresses that were imported; nothing leaves this computer),\n"
    "nominatim (a server is asked over the network) or none. Panels take it up when they\n"
    "start.\n"
    "\n"
    "With nominatim each lookup, at most one a minute, sends the position to the server.\n"
    "The command says to which, and wants a yes.\n"
    "\n"
    "Examples:\n"
    "  wayfell addresses use book\n"
    "  wayfell addresses use nominatim\n"
    "  wayfell addresses use nominatim --url http://localhost:8080 --yes\n"
    "Exit status: 0 done, 1 not agreed to or not saved, 2 the command line is wrong.";

// What the command line asks for.
struct AddressUseCommand {
  std::string service;  // "book", "nominatim" or "none"
  std::optional<std::string> url;
  bool agreed = false;  // to the position being sent
};

static_assert(TodayViewController::kAddressSeconds >= 60, "users are told: at most one a minute");

// Says what it means on standard error, where it is seen whatever becomes of the output.
void explain(const ServerUrl& server) {
  complain("each lookup, at most one a minute, sends your position to " + server.shown());
  complainMore("Whoever runs that server learns where you are, and your network address.");
  if (server.isPlain()) {
    complainMore("It is sent unencrypted: others on the way can read it (https:// hides it).");
  }
}

bool agrees() {
  complainMore("Type yes to agree:");
  std::string answer;
  std::getline(std::cin, answer);
  return answer == "yes";
}

// kDone when the user agrees to the server.
int askForConsent(const AddressUseCommand& command) {
  const ServerUrl server(command.url.value_or(Nominatim::kPublicServer));
  explain(server);
  if (command.agreed) return kDone;
  if (isatty(STDIN_FILENO) == 0) {
    complainMore("Nobody can be asked here. To agree, say --yes; nothing is changed.");
    return kBadUsage;
  }
  if (agrees()) return kDone;
  complainMore("Nothing is changed.");
  return kBadInput;
}

int store(const AddressUseCommand& command) {
  SqliteStore settings(localStoreFile(), SqliteStore::Access::readWrite, turnOfEachRead(),
                       complain);
  SqliteStore::Changes changes;
  changes[AddressChoice::kServiceKey] = PropertyValue(command.service);
  changes[AddressChoice::kUrlKey] =
      command.url ? std::optional(PropertyValue(*command.url)) : std::nullopt;
  return settings.setAll(changes) ? kDone : kBadInput;
}

// "service    book"
void printField(Output& output, std::string_view name, std::string_view value) {
  constexpr std::size_t kNameColumns = 11;
  std::string line(name);
  line.resize(kNameColumns, ' ');
  output.line(line.append(value));
}

std::string serviceText(const AddressChoice& choice) {
  if (!choice.service) return "book (where there is one; nothing has been chosen)";
  if (*choice.service != "nominatim") return *choice.service;
  return "nominatim, " + ServerUrl(choice.url.value_or(Nominatim::kPublicServer)).shown();
}

std::string cornerText(double latitude, double longitude) {
  return fixedText(latitude, 4) + ' ' + fixedText(longitude, 4);
}

void printBook(Output& output, const std::filesystem::path& path) {
  const BookSummary summary = readSummary(path);
  const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path));
  printField(output, "addresses", std::to_string(summary.addresses));
  printField(output, "size", std::to_string(size) + " bytes");
  if (summary.addresses == 0) return;
  printField(
      output, "area",
      cornerText(summary.south, summary.west) + " to " + cornerText(summary.north, summary.east));
}

int use(const AddressUseCommand& command) {
  if (command.service != "nominatim") {
    if (!command.url && !command.agreed) return store(command);
    complain("--url and --yes go with nominatim only");
    return kBadUsage;
  }
  try {
    const int consent = askForConsent(command);
    return consent == kDone ? store(command) : consent;
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadUsage;
  }
}

int info() {
  const SqliteStore settings(localStoreFile(), SqliteStore::Access::readOnly, turnOfEachRead(),
                             complain);
  const std::filesystem::path path = addressBookPath();
  Output output;
  try {
    printField(output, "service", serviceText(readAddressChoice(settings)));
    printField(output, "book", path.string());
    if (std::filesystem::exists(path)) {
      printBook(output, path);
    } else {
      printField(output, "addresses", "none; wayfell addresses import makes the book");
    }
  } catch (const std::exception& error) {
    output.flush();
    complain(path.string() + ": " + error.what());
    return kBadInput;
  }
  return output.finish(kDone);
}

Command useCommand() {
  const auto command = std::make_shared<AddressUseCommand>();
  return {.name = "use",
          .help = "Chooses where addresses come from",
          .more = kUseMore,
          .options = {{.name = "SERVICE",
                       .help = "book, nominatim or none",
                       .target = &command->service,
                       .words = {{"book", "addresses that were imported"},
                                 {"nominatim", "a server over the network"},
                                 {"none", "no addresses"}},
                       .isRequired = true},
                      {"--url", "Another server than the public one", &command->url, "URL"},
                      {"--yes", "Agree that positions are sent to the server", &command->agreed}},
          .run = [command] { return use(*command); }};
}

}  // namespace

Command addressesCommand() {
  return {.name = "addresses",
          .help = "Says where street addresses come from, and finds them",
          .more = kAddressesMore,
          .commands = {addressImportCommand(),
                       addressFindCommand(),
                       {.name = "info",
                        .help = "Shows the service in use and what the address book holds",
                        .more = "Exit status: 0 done, 1 the book cannot be read.",
                        .run = info},
                       useCommand()}};
}

}  // namespace wayfell
