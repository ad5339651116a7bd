// today and replay, as the command line has them.
#include <cmath>
#include <memory>

#include "hosts/live/SourceOptions.h"
#include "hosts/panel/PanelKeys.h"
#include "hosts/replay/Replay.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/ReplayCommand.h"
#include "hosts/terminal/TodayCommand.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr const char* kReplayHelp =
    "Replays a recording on the whole widget and prints what it shows, as one line of JSON for\n"
    "each snapshot. FILE is a GPX track, reports of gpsd (gpspipe -w) or a scenario (JSON Lines).";

constexpr const char* kReplayExamples =
    "Examples:\n"
    "  wayfell replay --demo --text --every 120\n"
    "  wayfell replay hike.gpx --suite units=1 --suite coordinateUnits=3 --text\n"
    "  gpspipe -w -n 500 | wayfell replay - --every 10\n"
    "  wayfell replay fault.jsonl --local selectedDatum='Adindan---Sudan' | tail -n 1\n"
    "Exit status: 0 done, 1 the input is bad, 2 the command line is.";

constexpr const char* kTodayHelp =
    "Shows the panel in the terminal: on the receiver of the gpsd here, where there is none on "
    "the\n"
    "built-in demo; or on what the options choose. FILE is a GPX track, reports of gpsd (gpspipe "
    "-w)\n"
    "or a scenario (JSON Lines). Without a terminal it prints the panel once, as it stands at the\n"
    "first fix.";

constexpr const char* kTodayMore =
    "A click on a format, on [Open] or on the mark beside it does what their keys do.\n";

constexpr const char* kTodayExamples =
    "Examples:\n"
    "  wayfell today\n"
    "  wayfell today --source gpsd=truck.local\n"
    "  wayfell today --replay hike.gpx --rate 10 --suite units=1\n"
    "  zcat log.gz | wayfell today --replay -     all of it is read first\n"
    "  wayfell today --demo --rate 0              paused from the start\n"
    "Exit status: 0 done, 1 the input is bad or no fix came, 2 the command line is bad.";

constexpr PanelAction kHostActions[] = {PanelAction::tellKeys, PanelAction::quit};
constexpr std::size_t kOptionColumns = 30;

}  // namespace

Command todayOptions() {
  static const Sources sources;
  const auto wishes = std::make_shared<SourceWishes>();
  Command today = {.name = "today",
                   .help = kTodayHelp,
                   .more = kTodayMore + keysHelp(kHostActions) + kTodayExamples,
                   .run = [wishes] { return runToday(sources, *wishes); },
                   .optionColumns = kOptionColumns};
  addSourceOptions(today, sources, *wishes);
  return today;
}

Command replayOptions() {
  const auto command = std::make_shared<ReplayCommand>();
  const auto isSpan = [](double seconds) {
    return std::isfinite(seconds) && seconds >= kShortestSpan;
  };
  Command replay = {
      .name = "replay",
      .help = kReplayHelp,
      .more = kReplayExamples,
      .options = {{.name = "FILE",
                   .help = "What to replay; - is standard input",
                   .target = &command->recording.file,
                   .value = "TEXT",
                   .listed = Listed::files,
                   .excludes = {"--demo"}},
                  {"--demo", "Replay the recording that is built in", &command->recording.demo}},
      .missing = [command] { return command->recording.isChosen() ? "" : "FILE or --demo"; },
      .run = [command] { return runReplay(*command); },
      .optionColumns = kOptionColumns};
  for (Option& option : firstSettingsOptions(command->settings)) replay.options.push_back(option);
  replay.options.push_back({.name = "--every",
                            .help = "Also show the widget every so many seconds",
                            .target = &command->every,
                            .value = "SECONDS",
                            .check = numberThat(isSpan, "expected a number of seconds, at least " +
                                                            shortestText(kShortestSpan))});
  replay.options.push_back({"--text", "Draw the panel instead of printing JSON", &command->text});
  return replay;
}

}  // namespace wayfell
