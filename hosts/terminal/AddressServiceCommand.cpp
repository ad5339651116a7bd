#include "hosts/terminal/AddressServiceCommand.h"

#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/AddressService.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/addresses/Nominatim.h"
#include "hosts/services/stores/SqliteStore.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/terminal/Output.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr const char* kAgree = "yes";

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
  return answer == kAgree;
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

}  // namespace

int runAddressUse(const AddressUseCommand& command) {
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

int runAddressInfo() {
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

}  // namespace wayfell
