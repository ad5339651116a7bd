#include "hosts/terminal/ToolOptions.h"

#include <algorithm>
#include <string>
#include <vector>

#include "hosts/places/PositionText.h"
#include "hosts/terminal/CommandHelp.h"

namespace wayfell {
namespace {

constexpr const char* kConvertHelp = "Shows positions in other formats, reads references back";

constexpr const char* kConvertMore =
    "Positions are decimal degrees on WGS 84, latitude first. They come from the\n"
    "arguments or, without any, from standard input: one a line, with blanks or a\n"
    "comma between; # begins a comment. A line that cannot be read is complained\n"
    "about, and the rest goes on.\n"
    "\n"
    "In UTM texts a zone is followed by its hemisphere, N or S, or by the letter of a\n"
    "latitude band; with --utm-type 1, N and S are bands as well.\n"
    "\n"
    "Examples:\n"
    "  wayfell convert 48.2082 16.3738\n"
    "  wayfell convert --to mgrs -33.9 18.4\n"
    "  wayfell convert --to utm --datum 'Adindan---Sudan' 15.6N 32.5E\n"
    "  wayfell convert --from mgrs 33U XP 02065 40354\n"
    "  wayfell convert --from utm --to dms 33 N 602065.2mE 5340353.7mN\n"
    "  wayfell convert --to mgrs --json < positions.txt\n"
    "Exit status: 0 done, 1 some of the input is bad, 2 the command line is.";

constexpr const char* kDistanceHelp = "Measures from a position to another, or finds a destination";

constexpr const char* kDistanceMore =
    "The distance and the first bearing are those of a great circle of a sphere. With\n"
    "--bearing and --distance: where they lead from one position, in decimal degrees.\n"
    "\n"
    "Examples:\n"
    "  wayfell distance 48.2082 16.3738 -33.9 18.4\n"
    "  wayfell distance --units nautical --mils 48.2082 16.3738 47.8 13.04\n"
    "  wayfell distance --bearing 270 --distance 1500 48.2082 16.3738\n"
    "Exit status: 0 done, 1 a position is bad, 2 the command line is.";

constexpr const char* kDatumsHelp = "Lists and searches the datums that positions can be shown on";

constexpr const char* kDatumsMore =
    "Shows the ellipsoid and the shift to WGS 84 of each datum, and what conversions\n"
    "apply of it. With WORDS: of those that have them all in their names, whatever the\n"
    "case, blanks, hyphens and diacritics.\n"
    "\n"
    "Examples:\n"
    "  wayfell datums\n"
    "  wayfell datums tokyo japan\n"
    "  wayfell datums near 16on\n"
    "  wayfell datums --names krassovsky\n"
    "Exit status: 0 done, 1 nothing is found, 2 the command line is wrong.";

}  // namespace

ToolOptions::ToolOptions(CLI::App& app) {
  addConvert(app);
  addDistance(app);
  addDatums(app);
}

void ToolOptions::addConvert(CLI::App& app) {
  CLI::App* const command = addCommand(app, "convert", kConvertHelp, kConvertMore);
  convertCommand_ = command;
  std::vector<std::string> formats(kPositionFormats.begin(), kPositionFormats.end());
  formats.emplace_back("all");
  command->add_option("LAT LON", convert_.input, "Positions, or references with --from")
      ->type_name("");
  command->add_option("--to", convert_.to, "Format: dec, dm, dms, mgrs, utm or all (if none)")
      ->type_name("FORMAT")
      ->check(oneOf(formats));
  command->add_option("--from", convert_.from, "Read references instead: utm or mgrs")
      ->type_name("FORMAT")
      ->check(oneOf<std::string>({"utm", "mgrs"}));
  command->add_option("--datum", convert_.datum, "Datum of texts and references; WGS 84 if none")
      ->type_name("NAME");
  command->add_option("--utm-type", convert_.utmType, "Letters: 0 hemispheres (if none), 1 bands")
      ->type_name("TYPE")
      ->check(oneOf<int>({0, 1}));
  addJson(*command, convert_.json);
}

void ToolOptions::addDistance(CLI::App& app) {
  CLI::App* const command = addCommand(app, "distance", kDistanceHelp, kDistanceMore);
  distanceCommand_ = command;
  const std::vector<std::string> units = {"imperial", "metric", "nautical"};
  command->add_option("LAT LON", distance_.input, "Two positions, or one to start from")
      ->type_name("");
  command->add_option("--bearing", distance_.bearing, "Degrees clockwise from north")
      ->type_name("DEGREES");
  command->add_option("--distance", distance_.distance, "How far to go")->type_name("METRES");
  command
      ->add_option_function<std::string>(
          "--units",
          [this, units](const std::string& name) {
            distance_.units =
                static_cast<int>(std::find(units.begin(), units.end(), name) - units.begin());
          },
          "imperial, metric (if none) or nautical")
      ->type_name("UNITS")
      ->check(oneOf(units));
  command->add_flag("--mils", distance_.mils, "Show the bearing in mils, 6400 to the circle");
  addJson(*command, distance_.json);
}

void ToolOptions::addDatums(CLI::App& app) {
  CLI::App* const command = addCommand(app, "datums", kDatumsHelp, kDatumsMore);
  datumsCommand_ = command;
  command->add_option("WORDS", datums_.words, "What to look for")->type_name("");
  command->add_flag("--names", datums_.names, "Print names only, one a line (not with --json)");
  addJson(*command, datums_.json);
}

std::optional<int> ToolOptions::run() const {
  if (convertCommand_->parsed()) return runConvert(convert_);
  if (distanceCommand_->parsed()) return runDistance(distance_);
  if (datumsCommand_->parsed()) return runDatums(datums_);
  return std::nullopt;
}

}  // namespace wayfell
