// `wayfell distance`: distance and bearing between two positions, or where a bearing and a distance
// lead from one, on the system's sphere.
#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "coordinates/CoordinateDistance.h"
#include "hosts/places/LengthText.h"
#include "hosts/places/PositionText.h"
#include "hosts/places/PositionWords.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/UserNotation.h"
#include "hosts/text/JsonWriter.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kDistanceMore =
    "The distance and the first bearing are those of a great circle of a sphere. With\n"
    "--bearing and --distance: where they lead from one position, in decimal degrees.\n"
    "\n"
    "Examples:\n"
    "  wayfell distance 48.2082 16.3738 -33.9 18.4\n"
    "  wayfell distance \"46 58.8 N 7 56.4 E\" \"32T MT 19383 03487\"\n"
    "  wayfell distance --units nautical --mils 48.2082 16.3738 47.8 13.04\n"
    "  wayfell distance --bearing 270 --distance 1.5km 48.2082 16.3738\n"
    "Exit status: 0 done, 1 a position is bad, 2 the command line is.";

constexpr std::array kUnits = {"imperial", "metric", "nautical"};

// What the command line asks for.
struct DistanceCommand {
  std::vector<std::string> input;  // two positions; one with a bearing and a distance
  std::optional<double> bearing;   // degrees
  std::optional<double> metres;    // with a bearing only
  int units = 1;                   // in kUnits
  bool mils = false;               // of bearings that are shown
  bool json = false;
};

void printDestination(const CLLocationCoordinate2D& start, const DistanceCommand& command,
                      Output& output) {
  const auto destination =
      CoordinateDistance::destination(start, *command.bearing, *command.metres);
  if (command.json) {
    output.line(positionJson(destination));
  } else {
    output.line(plainPosition(destination));
  }
}

void printDistance(const CLLocationCoordinate2D& from, const CLLocationCoordinate2D& to,
                   bool asJson, Output& output) {
  const double metres = CoordinateDistance::getDistanceBetweenAndCoordiante(from, to);
  const std::string distance =
      CoordinateDistance::getDistanceStringforDistance(metres).value_or("");
  const std::string bearing = CoordinateDistance::getAngleStringFromLatAndLongToOldLatAndOldLong(
      from.latitude, from.longitude, to.latitude, to.longitude);
  if (asJson) {
    const double degrees = CoordinateDistance::getAngleFromLatAndLongToOldLatAndOldLong(
        from.latitude, from.longitude, to.latitude, to.longitude);
    JsonWriter line;
    line.beginObject().member("metres", metres).member("degrees", degrees);
    line.member("distance", distance).member("bearing", bearing).endObject();
    output.line(line.text());
  } else {
    output.line("distance  " + distance);
    output.line("bearing   " + bearing);
  }
}

int distance(const DistanceCommand& command) {
  if (command.bearing.has_value() != command.metres.has_value()) {
    complain("--bearing and --distance go together");
    return kBadUsage;
  }
  if (command.input.empty()) {
    complain(command.bearing ? "--bearing and --distance lead from a position"
                             : "a distance is between two positions");
    return kBadUsage;
  }
  SimulatedHost host;
  host.local.set("units", PropertyValue(command.units));
  host.local.set("useMils", PropertyValue(command.mils ? 1 : 0));
  Output output;
  try {
    if (command.bearing) {
      printDestination(onePosition(command.input, userNotation()), command, output);
    } else {
      const auto [from, to] = twoPositions(command.input, userNotation());
      printDistance(from, to, command.json, output);
    }
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return output.finish(kDone);
}

std::string checkLength(const std::string& text) {
  try {
    metresOfText(text);
    return "";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

}  // namespace

Command distanceCommand() {
  const auto command = std::make_shared<DistanceCommand>();
  const auto takeUnits = [command](const std::string& name) {
    const auto* const found = std::find(kUnits.begin(), kUnits.end(), name);
    command->units = static_cast<int>(std::distance(kUnits.begin(), found));
  };
  const auto takeDistance = [command](const std::string& length) {
    command->metres = metresOfText(length);
  };
  return {.name = "distance",
          .help = "Measures from a position to another, or finds a destination",
          .more = kDistanceMore,
          .options = {{"POSITION", "Two positions, or one to start from", &command->input},
                      {.name = "--bearing",
                       .help = "Degrees clockwise from north",
                       .target = &command->bearing,
                       .value = "DEGREES",
                       .check = numberThat([](double degrees) { return std::isfinite(degrees); },
                                           "expected degrees, a number")},
                      {.name = "--distance",
                       .help = "How far to go, with its unit: 850m, 1.2km, 3mi, 2nm, 500ft",
                       .target = takeDistance,
                       .value = "LENGTH",
                       .check = checkLength},
                      {"--units", "imperial, metric (if none) or nautical", takeUnits, "UNITS",
                       wordsOf(kUnits)},
                      {"--mils", "Show the bearing in mils, 6400 to the circle", &command->mils},
                      jsonOption(command->json)},
          .run = [command] { return distance(*command); }};
}

}  // namespace wayfell
