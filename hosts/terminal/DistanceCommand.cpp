#include "hosts/terminal/DistanceCommand.h"

#include <stdexcept>

#include "coordinates/CoordinateDistance.h"
#include "hosts/places/PositionText.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/JsonWriter.h"
#include "hosts/text/TextScanner.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

std::vector<CLLocationCoordinate2D> positionsOf(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += word + ' ';
  std::vector<CLLocationCoordinate2D> positions;
  for (TextScanner scanner(text); !scanner.atEnd(); scanner.separator()) {
    positions.push_back(takePosition(scanner));
  }
  return positions;
}

void printDestination(const CLLocationCoordinate2D& start, const DistanceCommand& command,
                      Output& output) {
  const auto destination =
      CoordinateDistance::destination(start, *command.bearing, *command.distance);
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

}  // namespace

int runDistance(const DistanceCommand& command) {
  if (command.bearing.has_value() != command.distance.has_value()) {
    complain("--bearing and --distance go together");
    return kBadUsage;
  }
  SimulatedHost host;
  host.local.set("units", PropertyValue(command.units));
  host.local.set("useMils", PropertyValue(command.mils ? 1 : 0));
  Output output;
  try {
    const auto positions = positionsOf(command.input);
    const std::size_t wanted = command.bearing ? 1 : 2;
    if (positions.size() != wanted) {
      complain(command.bearing ? "--bearing and --distance lead from one position"
                               : "a distance is between two positions");
      return kBadUsage;
    }
    if (command.bearing) {
      printDestination(positions.front(), command, output);
    } else {
      printDistance(positions.front(), positions.back(), command.json, output);
    }
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return output.finish(kDone);
}

}  // namespace wayfell
