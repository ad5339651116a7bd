#include "hosts/terminal/TrackCommand.h"

#include <stdexcept>
#include <utility>

#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/TextScanner.h"
#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

[[noreturn]] void refuse(std::string_view text, const char* expected) {
  throw std::invalid_argument(inQuotes(text) + " is not " + expected);
}

double metresOf(std::string_view text) {
  constexpr std::pair<std::string_view, double> kUnits[] = {{"", 1},
                                                            {"M", 1},
                                                            {"KM", 1000},
                                                            {"MI", kMetresPerMile},
                                                            {"NM", kMetresPerNauticalMile},
                                                            {"FT", kMetresPerFoot}};
  TextScanner scanner(text);
  const auto number = scanner.number();
  const std::string letters = upperCased(scanner.letters());
  for (const auto& [unit, metres] : kUnits) {
    if (number && *number >= 0 && letters == unit && scanner.atEnd()) return *number * metres;
  }
  refuse(text, "a distance: metres, 0 or more, or with one of km, mi, nm and ft");
}

double secondsOf(std::string_view text) {
  if (const auto seconds = secondsOfElapsedText(text)) return *seconds;
  refuse(text, "a time: seconds, 0 or more, or MM:SS or H:MM:SS");
}

int publish(const TrackCommand& command) {
  SqliteStore::Changes changes;
  try {
    changes.emplace("distance", PropertyValue(metresOf(command.distance)));
    changes.emplace("time", PropertyValue(secondsOf(command.time)));
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return saveInSuite(changes);
}

}  // namespace

int runTrack(const TrackCommand& command) {
  const int status = command.action == TrackCommand::Action::publish
                         ? publish(command)
                         : saveInSuite({{"distance", std::nullopt}, {"time", std::nullopt}});
  if (status == kDone) remark("a running panel shows the change within half a second");
  return status;
}

}  // namespace wayfell
