#include "hosts/terminal/StoreOptions.h"

#include <string>
#include <vector>

#include "hosts/terminal/CommandHelp.h"

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

// Of a command: one of the things that it does. `action` becomes `value` when it is asked for.
template <class Action>
CLI::App* addAction(CLI::App& command, const char* name, const char* help, Action& action,
                    Action value) {
  CLI::App* const added = addCommand(command, name, help);
  added->parse_complete_callback([&action, value] { action = value; });
  return added;
}

}  // namespace

StoreOptions::StoreOptions(CLI::App& app) {
  addSettings(app);
  addWaypoint(app);
  addTrack(app);
}

void StoreOptions::addSettings(CLI::App& app) {
  using Action = SettingsCommand::Action;
  CLI::App& command = *addCommand(app, "settings", kSettingsHelp, kSettingsMore);
  command.require_subcommand(1);
  settingsCommand_ = &command;
  command.fallthrough();
  const auto addStore = [&](const char* name, const char* help, StoreChoice choice) {
    return command.add_flag_callback(
        name, [this, choice] { settings_.store = choice; }, help);
  };
  CLI::Option* const suite = addStore(
      "--suite", "Those that the app shares with the widget (if none)", StoreChoice::suite);
  CLI::Option* const local = addStore("--local", "The widget's own", StoreChoice::local);
  CLI::Option* const cloud =
      addStore("--cloud", "Those of the cloud, which are only read", StoreChoice::cloud);
  // The library's own way of saying so takes half of the help.
  command.callback([suite, local, cloud] {
    if (suite->count() + local->count() + cloud->count() > 1) {
      throw CLI::ValidationError("settings",
                                 "only one of --suite, --local and --cloud can be meant");
    }
  });

  const auto add = [&](const char* name, const char* help, Action action) {
    return addAction(command, name, help, settings_.action, action);
  };
  CLI::App* const list = add("list", "Print all of them: key, type and value", Action::list);
  CLI::App* const get = add("get", "Print the value of one", Action::get);
  CLI::App* const set = add("set", "Write one", Action::set);
  CLI::App* const unset = add("unset", "Remove one", Action::unset);
  for (CLI::App* const action : {get, set, unset}) {
    action->add_option("KEY", settings_.key)->required()->type_name("");
  }
  for (CLI::App* const action : {list, get}) {
    addJson(*action, settings_.json);
  }
  set->add_option("VALUE", settings_.value)->required()->type_name("");
  set->add_option("--type", settings_.type,
                  "boolean, integer, real, text, date, data, list or dictionary")
      ->type_name("TYPE")
      ->check(oneOf<std::string>(
          {"boolean", "integer", "real", "text", "date", "data", "list", "dictionary"}));
  set->footer(kSetMore);
}

void StoreOptions::addWaypoint(CLI::App& app) {
  using Action = WaypointCommand::Action;
  CLI::App& command = *addCommand(app, "waypoint", kWaypointHelp, kWaypointMore);
  command.require_subcommand(1);
  waypointCommand_ = &command;
  const auto add = [&](const char* name, const char* help, Action action) {
    return addAction(command, name, help, waypoint_.action, action);
  };
  CLI::App* const set = add("set", "Set it to a position, or to a waypoint of a file", Action::set);
  auto* const position =
      set->add_option("LAT LON", waypoint_.position, "Decimal degrees on WGS 84")->type_name("");
  auto* const gpx = set->add_option("--gpx", waypoint_.gpx, "A file with it; - is standard input")
                        ->type_name("FILE")
                        ->excludes(position);
  set->add_option("--name", waypoint_.name, "Which one of the file; not needed for the only one")
      ->type_name("NAME")
      ->needs(gpx);
  CLI::App* const show =
      add("show", "Print its position, in the format of the panel", Action::show);
  show->add_flag("--json", waypoint_.json, "Print a JSON object with numbers instead");
  add("clear", "Have none any more", Action::clear);
}

void StoreOptions::addTrack(CLI::App& app) {
  using Action = TrackCommand::Action;
  CLI::App& command = *addCommand(app, "track", kTrackHelp, kTrackMore);
  command.require_subcommand(1);
  trackCommand_ = &command;
  const auto add = [&](const char* name, const char* help, Action action) {
    return addAction(command, name, help, track_.action, action);
  };
  CLI::App* const publish =
      add("publish", "Write distance and time, both at once", Action::publish);
  publish->add_option("DISTANCE", track_.distance, "Metres, or with a unit: 1.2km, 3mi, 2nm, 500ft")
      ->required()
      ->type_name("");
  publish->add_option("TIME", track_.time, "Seconds, or MM:SS, or H:MM:SS")
      ->required()
      ->type_name("");
  add("clear", "Remove both", Action::clear);
}

std::optional<int> StoreOptions::run() const {
  if (settingsCommand_->parsed()) return runSettings(settings_);
  if (waypointCommand_->parsed()) return runWaypoint(waypoint_);
  if (trackCommand_->parsed()) return runTrack(track_);
  return std::nullopt;
}

}  // namespace wayfell
