// `wayfell track`: publishes the figures of the track being recorded, as the containing app does.
#include <memory>
#include <stdexcept>

#include "hosts/places/LengthText.h"
#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

constexpr const char* kTrackMore =
    "A running panel shows the change within half a second.\n"
    "\n"
    "Examples:\n"
    "  wayfell track publish 1234.5m 901\n"
    "  wayfell track publish 1.2km 1:02:03\n"
    "  wayfell track clear\n"
    "Exit status: 0 done, 1 a figure is bad or was not saved, 2 the command line is "
    "wrong.";

struct Figures {
  std::string distance;
  std::string time;
};

double secondsOf(std::string_view text) {
  if (const auto seconds = secondsOfElapsedText(text)) return *seconds;
  throw std::invalid_argument(inQuotes(text) +
                              " is not a time: seconds, 0 or more, or MM:SS or H:MM:SS");
}

int save(const SqliteStore::Changes& changes) {
  const int status = saveInSuite(changes);
  if (status == kDone) remark("a running panel shows the change within half a second");
  return status;
}

int publish(const Figures& figures) {
  SqliteStore::Changes changes;
  try {
    changes.emplace("distance", PropertyValue(metresOfText(figures.distance)));
    changes.emplace("time", PropertyValue(secondsOf(figures.time)));
  } catch (const std::invalid_argument& error) {
    complain(error.what());
    return kBadInput;
  }
  return save(changes);
}

}  // namespace

Command trackCommand() {
  const auto figures = std::make_shared<Figures>();
  return {.name = "track",
          .help = "Publishes the figures of the track being recorded",
          .more = kTrackMore,
          .commands = {{.name = "publish",
                        .help = "Write distance and time, both at once",
                        .options = {{.name = "DISTANCE",
                                     .help = "With its unit: 850m, 1.2km, 3mi, 2nm, 500ft",
                                     .target = &figures->distance,
                                     .isRequired = true},
                                    {.name = "TIME",
                                     .help = "Seconds, or MM:SS, or H:MM:SS",
                                     .target = &figures->time,
                                     .isRequired = true}},
                        .run = [figures] { return publish(*figures); }},
                       {.name = "clear", .help = "Remove both", .run = [] {
                          return save({{"distance", {}}, {"time", {}}});
                        }}}};
}

}  // namespace wayfell
