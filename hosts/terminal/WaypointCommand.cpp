#include "hosts/terminal/WaypointCommand.h"

#include <stdexcept>

#include "hosts/places/PositionText.h"
#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/WaypointChoice.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kLatitude = "waypointLatitude";
constexpr const char* kLongitude = "waypointLongitude";
constexpr const char* kHasWaypoint = "hasWaypoint";

// What positions are shown with: the widget's own choices, and the format that the app shares.
struct Shown {
  explicit Shown(const SqliteStore& suite) {
    const SqliteStore local = openStore(StoreChoice::local, SqliteStore::Access::readOnly);
    for (const char* key : {"selectedDatum", "utmType"}) {
      if (const PropertyValue* const value = local.find(key)) host.local.set(key, *value);
    }
    const PropertyValue* const stored = suite.find("coordinateUnits");
    const std::int64_t number = stored != nullptr ? stored->integerValue() : 0;
    if (number >= 0 && number < std::ssize(kPositionFormats)) {
      format = static_cast<std::size_t>(number);
    }
  }

  std::string text(const CLLocationCoordinate2D& position) const {
    return positionText(position, format).value_or(plainPosition(position));
  }

  SimulatedHost host;
  std::size_t format = 0;
};

double number(const SqliteStore& suite, const char* key) {
  const PropertyValue* const value = suite.find(key);
  return value != nullptr ? value->doubleValue() : 0;
}

std::optional<CLLocationCoordinate2D> typedPosition(const std::vector<std::string>& words) {
  try {
    return positionOfWords(words);
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return std::nullopt;
  }
}

std::optional<CLLocationCoordinate2D> chosenPosition(const WaypointCommand& command) {
  if (!command.gpx) return typedPosition(command.position);
  const auto waypoint = chosenWaypoint(*command.gpx, command.name);
  return waypoint ? std::optional(waypoint->position) : std::nullopt;
}

int set(const WaypointCommand& command) {
  if (command.position.empty() && !command.gpx) {
    complain("a position or --gpx FILE is missing");
    return kBadUsage;
  }
  const auto position = chosenPosition(command);
  if (!position) return kBadInput;
  const int status = saveInSuite({{kLatitude, PropertyValue(position->latitude)},
                                  {kLongitude, PropertyValue(position->longitude)},
                                  {kHasWaypoint, PropertyValue(true)}});
  if (status == kDone) {
    remark("the waypoint is " + plainPosition(*position) +
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

int show(const WaypointCommand& command) {
  const SqliteStore suite = openStore(StoreChoice::suite, SqliteStore::Access::readOnly);
  const PropertyValue* const has = suite.find(kHasWaypoint);
  if (has == nullptr || !has->boolValue()) {
    if (suite.state() != SqliteStore::State::unreadable) complain("no waypoint is set");
    return kBadInput;
  }
  const CLLocationCoordinate2D position = {number(suite, kLatitude), number(suite, kLongitude)};
  Output output;
  if (command.json) {
    output.line(positionJson(position));
  } else {
    output.line(Shown(suite).text(position));
  }
  return output.finish(kDone);
}

}  // namespace

int runWaypoint(const WaypointCommand& command) {
  switch (command.action) {
    case WaypointCommand::Action::set:
      return set(command);
    case WaypointCommand::Action::clear:
      return clear();
    case WaypointCommand::Action::show:
      break;
  }
  return show(command);
}

}  // namespace wayfell
