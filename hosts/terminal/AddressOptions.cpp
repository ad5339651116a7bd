// addresses, as the command line has it.
#include <memory>

#include "hosts/terminal/AddressFindCommand.h"
#include "hosts/terminal/AddressImportCommand.h"
#include "hosts/terminal/AddressServiceCommand.h"
#include "hosts/terminal/Commands.h"

namespace wayfell {
namespace {

constexpr const char* kAddressesHelp = "Says where street addresses come from, and finds them";

constexpr const char* kAddressesMore =
    "Examples:\n"
    "  wayfell addresses import us/dc/statewide.csv\n"
    "  wayfell addresses find 38.8670 -76.9792\n"
    "  wayfell addresses info\n"
    "Exit status: 0 done, 1 something is bad or not found, 2 the command line is wrong.";

constexpr const char* kImportHelp = "Makes the address book out of files of OpenAddresses";

constexpr const char* kImportMore =
    "FILE is CSV with the columns LON and LAT and any of NUMBER, STREET, CITY, DISTRICT,\n"
    "REGION, or GeoJSON with a Feature a line; - is standard input. The new book takes\n"
    "the place of the old one when it is complete; whatever goes wrong before, the old\n"
    "one is as it was. Rows that cannot be read are told of and left out.\n"
    "\n"
    "Examples:\n"
    "  wayfell addresses import us/dc/statewide.csv us/md/statewide.csv\n"
    "  wayfell addresses import --add --country AT wien.geojson\n"
    "  zcat berlin.csv.gz | wayfell addresses import --country DE -\n"
    "Exit status: 0 done, 1 a row is left out or nothing imported, 2 the command line\n"
    "is wrong.";

constexpr const char* kFindMore =
    "Examples:\n"
    "  wayfell addresses find 38.8670 -76.9792\n"
    "  wayfell addresses find --json 48.2082N 16.3738E\n"
    "Exit status: 0 found, 1 no address, 2 the command line is wrong.";

constexpr const char* kInfoHelp = "Shows the service in use and what the address book holds";

constexpr const char* kInfoMore = "Exit status: 0 done, 1 the book cannot be read.";

constexpr const char* kUseHelp = "Chooses where addresses come from";

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

Command importOptions() {
  const auto command = std::make_shared<AddressImportCommand>();
  return {.name = "import",
          .help = kImportHelp,
          .more = kImportMore,
          .options = {{.name = "FILE",
                       .help = "What to import",
                       .target = &command->files,
                       .listed = Listed::files,
                       .isRequired = true},
                      {"--country",
                       "Two letters: where it is; if not said, after a path like us/ca/...",
                       &command->country, "CC"},
                      {"--add", "Keep what is in the book", &command->add}},
          .run = [command] { return runAddressImport(*command); }};
}

Command findOptions() {
  const auto command = std::make_shared<AddressFindCommand>();
  return {.name = "find",
          .help = "Finds the address of a position, " + radiusText(),
          .more = kFindMore,
          .options = {{.name = "LAT LON",
                       .help = "Decimal degrees on WGS 84",
                       .target = &command->input,
                       .isRequired = true},
                      {"--online", "Ask the server that was agreed to, instead of the book",
                       &command->online},
                      {"--json", "Print a JSON object", &command->json}},
          .run = [command] { return runAddressFind(*command); }};
}

Command useOptions() {
  const auto command = std::make_shared<AddressUseCommand>();
  return {.name = "use",
          .help = kUseHelp,
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
          .run = [command] { return runAddressUse(*command); }};
}

}  // namespace

Command addressesOptions() {
  return {
      .name = "addresses",
      .help = kAddressesHelp,
      .more = kAddressesMore,
      .commands = {importOptions(),
                   findOptions(),
                   {.name = "info", .help = kInfoHelp, .more = kInfoMore, .run = runAddressInfo},
                   useOptions()}};
}

}  // namespace wayfell
