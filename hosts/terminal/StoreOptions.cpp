// settings, waypoint and track, as the command line has them.
#include <algorithm>
#include <array>
#include <memory>

#include "hosts/settings/KnownSettings.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/SettingsCommand.h"
#include "hosts/terminal/TrackCommand.h"
#include "hosts/terminal/WaypointCommand.h"

namespace wayfell {
namespace {

constexpr const char* kSettingsHelp = "Reads and writes the settings that are kept on disk";

constexpr const char* kSettingsMore =
    "Without an option these are the settings that the app shares with the widget. A\n"
    "running panel shows \"distance\" and \"time\" within half a second, all others when\n"
    "it next appears.\n"
    "\n"
    "Examples:\n"
    "  wayfell settings list\n"
    "  wayfell settings set units 1\n"
    "  wayfell settings get units\n"
    "  wayfell settings --local set selectedDatum 'Adindan---Sudan'\n"
    "  wayfell settings unset widgetAddressString\n"
    "Exit status: 0 done, 1 there is no such key, the value is bad or was not saved,\n"
    "2 the command line is wrong.";

constexpr const char* kSetMore =
    "Without --type a JSON number, true or false keeps its type, all else is text; a\n"
    "type that the widget can make nothing of is refused.\n"
    "A boolean is true, yes, 1, false, no or 0; a date is in ISO 8601, or in seconds\n"
    "since 2001-01-01 00:00 UTC; data are in base64, lists and dictionaries in JSON.\n"
    "\n"
    "Examples:\n"
    "  wayfell settings set coordinateUnits 3\n"
    "  wayfell settings set --type boolean useMils yes\n"
    "  wayfell settings set --type text note 12";

constexpr const char* kWaypointHelp = "Sets, shows and clears the waypoint";

constexpr const char* kWaypointMore =
    "A running panel shows the change when it next appears.\n"
    "\n"
    "Examples:\n"
    "  wayfell waypoint set 46.9781N 8.2549E\n"
    "  wayfell waypoint set --gpx huts.gpx --name 'Upper hut'\n"
    "  wayfell waypoint show\n"
    "  wayfell waypoint clear\n"
    "Exit status: 0 done, 1 there is no such waypoint, the position is bad or was not\n"
    "saved, 2 the command line is wrong.";

constexpr const char* kTrackHelp = "Publishes the figures of the track being recorded";

constexpr const char* kTrackMore =
    "A running panel shows the change within half a second.\n"
    "\n"
    "Examples:\n"
    "  wayfell track publish 1234.5 901\n"
    "  wayfell track publish 1.2km 1:02:03\n"
    "  wayfell track clear\n"
    "Exit status: 0 done, 1 a figure is bad or was not saved, 2 the command line is\n"
    "wrong.";

// One of the things that a command does.
template <class Asked, class Run>
Command action(const char* name, const char* help, const std::shared_ptr<Asked>& command,
               typename Asked::Action asked, Run run, const std::vector<Option>& options) {
  return {.name = name, .help = help, .options = options, .run = [command, asked, run] {
            command->action = asked;
            return run(*command);
          }};
}

bool holds(const std::vector<std::string>& words, const char* word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

Words keysAfter(const std::vector<std::string>& before) {
  Words keys;
  for (const KnownSetting& setting : knownSettings()) {
    if (setting.read == KnownSetting::Read::own && !holds(before, "--local")) continue;
    keys.push_back({std::string(setting.key), aboutOf(setting)});
  }
  return keys;
}

// What the key makes sense of, which stands just before.
Words valuesAfter(const std::vector<std::string>& before) {
  Words values;
  const KnownSetting* const setting = before.empty() ? nullptr : knownSetting(before.back());
  if (setting == nullptr) return values;
  for (const SettingChoice& choice : choicesOf(*setting)) {
    values.push_back({choice.value, choice.meaning});
  }
  return values;
}

constexpr std::array kTypes = {"boolean", "integer", "real", "text",
                               "date",    "data",    "list", "dictionary"};

}  // namespace

Command settingsOptions() {
  using Action = SettingsCommand::Action;
  const auto command = std::make_shared<SettingsCommand>();
  const auto store = [&command](const char* name, const char* help, StoreChoice choice) {
    return Option{
        .name = name, .help = help, .target = [command, choice] { command->store = choice; }};
  };
  const Option key = {
      .name = "KEY", .help = "", .target = &command->key, .offered = keysAfter, .isRequired = true};
  const Option json = jsonOption(command->json);
  Command set = action("set", "Write one", command, Action::set, runSettings,
                       {key,
                        {.name = "VALUE",
                         .help = "",
                         .target = &command->value,
                         .offered = valuesAfter,
                         .isRequired = true},
                        {"--type", "boolean, integer, real, text, date, data, list or dictionary",
                         &command->type, "TYPE", wordsOf(kTypes)}});
  set.more = kSetMore;
  return {
      .name = "settings",
      .help = kSettingsHelp,
      .more = kSettingsMore,
      .options = {store("--suite", "Those that the app shares with the widget (if none)",
                        StoreChoice::suite),
                  store("--local", "The widget's own", StoreChoice::local),
                  store("--cloud", "Those of the cloud, which are only read", StoreChoice::cloud)},
      .commands = {action("list", "Print all of them: key, type and value", command, Action::list,
                          runSettings, {json}),
                   action("get", "Print the value of one", command, Action::get, runSettings,
                          {key, json}),
                   set, action("unset", "Remove one", command, Action::unset, runSettings, {key})},
      .sharesOptions = true,
      .alternatives = {"--suite", "--local", "--cloud"}};
}

Command waypointOptions() {
  using Action = WaypointCommand::Action;
  const auto command = std::make_shared<WaypointCommand>();
  return {
      .name = "waypoint",
      .help = kWaypointHelp,
      .more = kWaypointMore,
      .commands = {action("set", "Set it to a position, or to a waypoint of a file", command,
                          Action::set, runWaypoint,
                          {{"LAT LON", "Decimal degrees on WGS 84", &command->position},
                           {.name = "--gpx",
                            .help = "A file with it; - is standard input",
                            .target = &command->gpx,
                            .value = "FILE",
                            .listed = Listed::files,
                            .excludes = {"LAT LON"}},
                           {.name = "--name",
                            .help = "Which one of the file; not needed for the only one",
                            .target = &command->name,
                            .value = "NAME",
                            .needs = {"--gpx"}}}),
                   action("show", "Print its position, in the format of the panel", command,
                          Action::show, runWaypoint,
                          {{"--json", "Print a JSON object with numbers instead", &command->json}}),
                   action("clear", "Have none any more", command, Action::clear, runWaypoint, {})}};
}

Command trackOptions() {
  using Action = TrackCommand::Action;
  const auto command = std::make_shared<TrackCommand>();
  return {.name = "track",
          .help = kTrackHelp,
          .more = kTrackMore,
          .commands = {action("publish", "Write distance and time, both at once", command,
                              Action::publish, runTrack,
                              {{.name = "DISTANCE",
                                .help = "Metres, or with a unit: 1.2km, 3mi, 2nm, 500ft",
                                .target = &command->distance,
                                .isRequired = true},
                               {.name = "TIME",
                                .help = "Seconds, or MM:SS, or H:MM:SS",
                                .target = &command->time,
                                .isRequired = true}}),
                       action("clear", "Remove both", command, Action::clear, runTrack, {})}};
}

}  // namespace wayfell
