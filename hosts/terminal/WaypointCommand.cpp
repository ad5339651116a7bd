// `wayfell waypoint`: sets, shows and clears the waypoint that the containing app shares with the
// widget.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "hosts/places/DatumNote.h"
#include "hosts/places/PositionText.h"
#include "hosts/places/PositionWords.h"
#include "hosts/replay/GpxWaypoints.h"
#include "hosts/replay/Recording.h"
#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/UserNotation.h"
#include "hosts/text/FoldedText.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/InputError.h"
#include "hosts/text/InputFile.h"
#include "hosts/text/TextScanner.h"
#include "platform/SimulatedHost.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

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

constexpr const char* kLatitude = "waypointLatitude";
constexpr const char* kLongitude = "waypointLongitude";
constexpr const char* kHasWaypoint = "hasWaypoint";

using Waypoints = std::vector<GpxWaypoint>;

Waypoints waypointsIn(const std::string& file) {
  const InputFile open(file);
  Waypoints waypoints =
      waypointsOfGpx(InputBytes(bytesOfFile(open.descriptor())).readAll(kLongestGpxFile));
  if (waypoints.empty()) throw InputError("no waypoints in the GPX file");
  return waypoints;
}

Waypoints called(const Waypoints& waypoints, const std::string& name) {
  Waypoints found;
  std::copy_if(waypoints.begin(), waypoints.end(), std::back_inserter(found),
               [wanted = comparableName(name)](const GpxWaypoint& waypoint) {
                 return comparableName(waypoint.name) == wanted;
               });
  return found;
}

// Those whose names have the text in them, whatever the case and diacritics; all if none has.
Waypoints near(const Waypoints& waypoints, const std::string& name) {
  const std::string folded = foldedText(name);
  Waypoints found;
  std::copy_if(waypoints.begin(), waypoints.end(), std::back_inserter(found),
               [&folded](const GpxWaypoint& waypoint) {
                 return foldedText(waypoint.name).find(folded) != std::string::npos;
               });
  return found.empty() ? waypoints : found;
}

void listThem(const Waypoints& waypoints) {
  constexpr std::size_t kMost = 10;
  for (std::size_t i = 0; i < waypoints.size() && i < kMost; ++i) {
    const GpxWaypoint& waypoint = waypoints[i];
    complainMore("waypoint " + std::to_string(waypoint.number) + "  " +
                 plainPosition(waypoint.position) + "  " +
                 (waypoint.name.empty() ? "without a name" : inQuotes(waypoint.name)));
  }
  if (waypoints.size() > kMost) {
    complainMore("and " + std::to_string(waypoints.size() - kMost) + " more");
  }
}

// The one of this name or, without a name, the only one; "-" is standard input. None, and a
// complaint that lists what there is to choose from, when the file has no such waypoint or several.
std::optional<GpxWaypoint> chosenWaypoint(const std::string& file,
                                          const std::optional<std::string>& name) {
  const std::string place = (file == "-" ? "standard input" : file) + ": ";
  try {
    const Waypoints waypoints = waypointsIn(file);
    const Waypoints found = name ? called(waypoints, *name) : waypoints;
    if (found.size() == 1) return found.front();
    if (!name) {
      complain(place + "say with --name which of these waypoints it is, or give its position");
    } else if (found.empty()) {
      complain(place + "no waypoint has the name " + inQuotes(*name) + "; there are");
    } else {
      complain(place + "several waypoints have the name " + inQuotes(*name) +
               "; give the position of one instead");
    }
    listThem(found.empty() ? near(waypoints, *name) : found);
  } catch (const InputError& error) {
    complain(place + error.what());
  }
  return std::nullopt;
}

// The datum and the UTM letters that the user has chosen in the widget.
struct ChosenDatum {
  ChosenDatum() {
    const SqliteStore local = openStore(StoreChoice::local, SqliteStore::Access::readOnly);
    for (const char* key : {"selectedDatum", "utmType"}) {
      if (const PropertyValue* const value = local.find(key)) host.local.set(key, *value);
    }
  }

  SimulatedHost host;
};

// What positions are shown with: these, and the format that the app shares.
struct Shown : ChosenDatum {
  explicit Shown(const SqliteStore& suite) {
    const PropertyValue* const stored = suite.find("coordinateUnits");
    const std::int64_t number = stored != nullptr ? stored->integerValue() : 0;
    if (number >= 0 && number < std::ssize(kPositionFormats)) {
      format = static_cast<std::size_t>(number);
    }
  }

  std::string text(const CLLocationCoordinate2D& position) const {
    return positionText(position, format).value_or(plainPosition(position));
  }

  std::size_t format = 0;
};

double number(const SqliteStore& suite, const char* key) {
  const PropertyValue* const value = suite.find(key);
  return value != nullptr ? value->doubleValue() : 0;
}

// What the datum's shift leaves out, where the position was read on that datum.
void tellOfDatum(ChosenDatum& chosen, const std::vector<std::string>& words,
                 const PositionNotation& notation, const CLLocationCoordinate2D& position) {
  const std::string note = selectedDatumNote();
  if (note.empty()) return;
  chosen.host.local.set("selectedDatum", std::nullopt);
  const CLLocationCoordinate2D unshifted = onePosition(words, notation);
  if (unshifted.latitude != position.latitude) complain(note);
}

std::optional<CLLocationCoordinate2D> typedPosition(const std::vector<std::string>& words) {
  ChosenDatum chosen;
  PositionNotation notation = userNotation();
  if (UserDefaults::checkIntDefaults("utmType") == 1) notation.utmLetters = UtmLetters::bands;
  try {
    const CLLocationCoordinate2D position = onePosition(words, notation);
    tellOfDatum(chosen, words, notation, position);
    return position;
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return std::nullopt;
  }
}

// What the command line asks to set.
struct WaypointWish {
  std::vector<std::string> position;  // one, however it is written; or else
  std::optional<std::string> gpx;     // a file with the waypoint; "-" is standard input
  std::optional<std::string> name;    // of the one in the file; unset: it has only one
};

std::optional<GpxWaypoint> wishedWaypoint(const WaypointWish& wish) {
  if (wish.gpx) return chosenWaypoint(*wish.gpx, wish.name);
  const auto position = typedPosition(wish.position);
  return position ? std::optional(GpxWaypoint{0, "", *position}) : std::nullopt;
}

int set(const WaypointWish& wish) {
  if (wish.position.empty() && !wish.gpx) {
    complain("a position or --gpx FILE is missing");
    return kBadUsage;
  }
  const auto waypoint = wishedWaypoint(wish);
  if (!waypoint) return kBadInput;
  const CLLocationCoordinate2D& position = waypoint->position;
  const int status = saveInSuite({{kLatitude, PropertyValue(position.latitude)},
                                  {kLongitude, PropertyValue(position.longitude)},
                                  {kHasWaypoint, PropertyValue(true)}});
  if (status == kDone) {
    const std::string name = waypoint->name.empty() ? "" : inQuotes(waypoint->name) + ", ";
    remark("the waypoint is " + name + plainPosition(position) +
           "; a running panel shows it when it next appears");
  }
  return status;
}

int clear() {
  const int status = saveInSuite({{kLatitude, std::nullopt},
                                  {kLongitude, std::nullopt},
                                  {kHasWaypoint, PropertyValue(false)}});
  if (status == kDone) remark("a running panel shows no waypoint when it next appears");
  return status;
}

int show(bool asJson) {
  const SqliteStore suite = openStore(StoreChoice::suite, SqliteStore::Access::readOnly);
  const PropertyValue* const has = suite.find(kHasWaypoint);
  if (has == nullptr || !has->boolValue()) {
    if (suite.state() != SqliteStore::State::unreadable) complain("no waypoint is set");
    return kBadInput;
  }
  const CLLocationCoordinate2D position = {number(suite, kLatitude), number(suite, kLongitude)};
  Output output;
  if (asJson) {
    output.line(positionJson(position));
  } else {
    output.line(Shown(suite).text(position));
  }
  return output.finish(kDone);
}

}  // namespace

Command waypointCommand() {
  const auto wish = std::make_shared<WaypointWish>();
  const auto asJson = std::make_shared<bool>(false);
  return {.name = "waypoint",
          .help = "Sets, shows and clears the waypoint",
          .more = kWaypointMore,
          .commands = {
              {.name = "set",
               .help = "Set it to a position, or to a waypoint of a file",
               .options = {{"POSITION", kPositionHelp, &wish->position},
                           {.name = "--gpx",
                            .help = "A file with it; - is standard input",
                            .target = &wish->gpx,
                            .value = "FILE",
                            .listed = Listed::files,
                            .excludes = {"POSITION"}},
                           {.name = "--name",
                            .help = "Which one of the file; not needed for the only one",
                            .target = &wish->name,
                            .value = "NAME",
                            .needs = {"--gpx"}}},
               .run = [wish] { return set(*wish); }},
              {.name = "show",
               .help = "Print its position, in the format of the panel",
               .options = {{"--json", "Print a JSON object with numbers instead", asJson.get()}},
               .run = [asJson] { return show(*asJson); }},
              {.name = "clear", .help = "Have none any more", .run = clear}}};
}

}  // namespace wayfell
