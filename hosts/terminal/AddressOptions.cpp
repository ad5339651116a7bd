#include "hosts/terminal/AddressOptions.h"

#include <CLI/CLI.hpp>

#include "hosts/terminal/CommandHelp.h"

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

constexpr const char* kFindHelp = "Finds the address of a position, within 100 m";

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

}  // namespace

AddressOptions::AddressOptions(CLI::App& app) {
  CLI::App& addresses = *addCommand(app, "addresses", kAddressesHelp, kAddressesMore);
  addresses.require_subcommand(1);
  addImport(addresses);
  addFind(addresses);
  addInfo(addresses);
  addUse(addresses);
}

void AddressOptions::addImport(CLI::App& addresses) {
  CLI::App* const command = addCommand(addresses, "import", kImportHelp, kImportMore);
  importCommand_ = command;
  command->add_option("FILE", import_.files, "What to import")->type_name("")->required();
  command
      ->add_option("--country", import_.country,
                   "Two letters: where it is; if not said, after a path like us/ca/...")
      ->type_name("CC");
  command->add_flag("--add", import_.add, "Keep what is in the book");
}

void AddressOptions::addFind(CLI::App& addresses) {
  CLI::App* const command = addCommand(addresses, "find", kFindHelp, kFindMore);
  findCommand_ = command;
  command->add_option("LAT LON", find_.input, "Decimal degrees on WGS 84")
      ->type_name("")
      ->required();
  command->add_flag("--online", find_.online,
                    "Ask the server that was agreed to, instead of the book");
  command->add_flag("--json", find_.json, "Print a JSON object");
}

void AddressOptions::addInfo(CLI::App& addresses) {
  infoCommand_ = addCommand(addresses, "info", kInfoHelp, kInfoMore);
}

void AddressOptions::addUse(CLI::App& addresses) {
  CLI::App* const command = addCommand(addresses, "use", kUseHelp, kUseMore);
  useCommand_ = command;
  command->add_option("SERVICE", use_.service, "book, nominatim or none")
      ->type_name("")
      ->required()
      ->check(oneOf<std::string>({"book", "nominatim", "none"}));
  command->add_option("--url", use_.url, "Another server than the public one")->type_name("URL");
  command->add_flag("--yes", use_.agreed, "Agree that positions are sent to the server");
}

std::optional<int> AddressOptions::run() const {
  if (importCommand_->parsed()) return runAddressImport(import_);
  if (findCommand_->parsed()) return runAddressFind(find_);
  if (infoCommand_->parsed()) return runAddressInfo();
  if (useCommand_->parsed()) return runAddressUse(use_);
  return std::nullopt;
}

}  // namespace wayfell
