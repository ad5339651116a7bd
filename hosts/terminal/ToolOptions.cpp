// convert, distance and datums, as the command line has them.
#include <algorithm>
#include <array>
#include <iterator>
#include <memory>

#include "datums/Catalogue.h"
#include "hosts/places/PositionText.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/ConvertCommand.h"
#include "hosts/terminal/DatumsCommand.h"
#include "hosts/terminal/DistanceCommand.h"

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

constexpr std::array kUnits = {"imperial", "metric", "nautical"};

Words datumNames() {
  Words names;
  for (const CatalogueDatum& datum : kDatums) names.push_back({std::string(datum.name)});
  return names;
}

}  // namespace

Option jsonOption(bool& json) { return {"--json", "Print one JSON object a line", &json}; }

Command convertOptions() {
  const auto command = std::make_shared<ConvertCommand>();
  Words formats = wordsOf(kPositionFormats);
  formats.push_back({"all"});
  return {.name = "convert",
          .help = kConvertHelp,
          .more = kConvertMore,
          .options = {{"LAT LON", "Positions, or references with --from", &command->input},
                      {"--to", "Format: dec, dm, dms, mgrs, utm or all (if none)", &command->to,
                       "FORMAT", formats},
                      {"--from",
                       "Read references instead: utm or mgrs",
                       &command->from,
                       "FORMAT",
                       {{"utm"}, {"mgrs"}}},
                      {.name = "--datum",
                       .help = "Datum of texts and references; WGS 84 if none",
                       .target = &command->datum,
                       .value = "NAME",
                       .offered = [](const auto& /*before*/) { return datumNames(); }},
                      {"--utm-type",
                       "Letters: 0 hemispheres (if none), 1 bands",
                       &command->utmType,
                       "TYPE",
                       {{"0", "hemispheres"}, {"1", "latitude bands"}}},
                      jsonOption(command->json)},
          .run = [command] { return runConvert(*command); }};
}

Command distanceOptions() {
  const auto command = std::make_shared<DistanceCommand>();
  const auto takeUnits = [command](const std::string& name) {
    const auto* const found = std::find(kUnits.begin(), kUnits.end(), name);
    command->units = static_cast<int>(std::distance(kUnits.begin(), found));
  };
  return {.name = "distance",
          .help = kDistanceHelp,
          .more = kDistanceMore,
          .options = {{"LAT LON", "Two positions, or one to start from", &command->input},
                      {"--bearing", "Degrees clockwise from north", &command->bearing, "DEGREES"},
                      {"--distance", "How far to go", &command->distance, "METRES"},
                      {"--units", "imperial, metric (if none) or nautical", takeUnits, "UNITS",
                       wordsOf(kUnits)},
                      {"--mils", "Show the bearing in mils, 6400 to the circle", &command->mils},
                      jsonOption(command->json)},
          .run = [command] { return runDistance(*command); }};
}

Command datumsOptions() {
  const auto command = std::make_shared<DatumsCommand>();
  return {
      .name = "datums",
      .help = kDatumsHelp,
      .more = kDatumsMore,
      .options = {{"WORDS", "What to look for", &command->words},
                  {"--names", "Print names only, one a line (not with --json)", &command->names},
                  jsonOption(command->json)},
      .run = [command] { return runDatums(*command); }};
}

}  // namespace wayfell
