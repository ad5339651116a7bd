// The command line of wayfell. It and the sources named ...Options alone know the library that
// reads it, which is slow to build.

#include <CLI/CLI.hpp>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "hosts/replay/Replay.h"
#include "hosts/scene/Playback.h"
#include "hosts/terminal/AddressOptions.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/ReplayCommand.h"
#include "hosts/terminal/StoreOptions.h"
#include "hosts/terminal/TodayCommand.h"
#include "hosts/terminal/ToolOptions.h"

namespace {

constexpr const char* kVersion = "wayfell " WAYFELL_VERSION;

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

constexpr const char* kTodayExamples =
    "Keys: 0 to 4 choose the format of the position, t switches the layout, o opens the app, h\n"
    "hides and shows the panel, ? shows the keys, q quits. A click on a format, on [Open] or on "
    "the\n"
    "mark beside it does it too. On a receiver, c has the heading follow the compass or the "
    "course.\n"
    "On a recording, space pauses, . goes one second on, + and - change the rate.\n"
    "Examples:\n"
    "  wayfell today\n"
    "  wayfell today --gpsd truck.local\n"
    "  wayfell today --replay hike.gpx --rate 10 --suite units=1\n"
    "  zcat log.gz | wayfell today --replay -     all of it is read first\n"
    "  wayfell today --demo --rate 0              paused from the start\n"
    "Exit status: 0 done, 1 the input is bad or no fix came, 2 the command line is bad.";

std::string checkGpsd(const std::string& text) {
  return wayfell::gpsdAddressOf(text) ? "" : "expected HOST:PORT, HOST or :PORT";
}

std::string checkRate(const std::string& text) {
  double rate = 0;
  const bool number = CLI::detail::lexical_cast(text, rate);
  using wayfell::Playback;
  if (number && (rate == 0 || (rate >= Playback::kSlowest && rate <= Playback::kFastest))) {
    return "";
  }
  return "expected a rate from 0.1 to 1000, or 0 to start in a pause";
}

std::string checkSpan(const std::string& text) {
  double seconds = 0;
  const bool number = CLI::detail::lexical_cast(text, seconds);
  if (number && std::isfinite(seconds) && seconds >= wayfell::Replay::kShortestSpan) return "";
  return "expected a number of seconds, at least 0.001";
}

void addSettings(CLI::App& app, wayfell::RecordingChoice& recording) {
  app.add_option("--suite", recording.suite,
                 "Set a value of the shared settings first; a JSON number, true or false "
                 "keeps its type, all else is text (repeatable)")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  app.add_option("--local", recording.local, "Likewise of the widget's own settings")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
}

CLI::App* addToday(CLI::App& app, wayfell::TodayCommand& command) {
  CLI::App* today = app.add_subcommand("today", kTodayHelp);
  auto* demo =
      today->add_flag("--demo", command.recording.demo, "Show the recording that is built in");
  auto* file = today
                   ->add_option("--replay", command.recording.file,
                                "Show this recording; - is standard input, read to its end first")
                   ->type_name("FILE")
                   ->excludes(demo);
  today
      ->add_option_function<std::string>(
          "--gpsd",
          [&command](const std::string& text) { command.gpsd = wayfell::gpsdAddressOf(text); },
          "Show what this gpsd reports, and wait for it if need be (port 2947 if none is given)")
      ->type_name("HOST:PORT")
      ->check(checkGpsd)
      ->excludes(demo)
      ->excludes(file);
  today
      ->add_option("--rate", command.rate,
                   "Recorded seconds to a real one, 0.1 to 1000; 0 starts in a pause (default 1)")
      ->type_name("N")
      ->check(checkRate);
  addSettings(*today, command.recording);
  today->footer(kTodayExamples);
  return today;
}

CLI::App* addReplay(CLI::App& app, wayfell::ReplayCommand& command) {
  CLI::App* replay = app.add_subcommand("replay", kReplayHelp);
  auto* file =
      replay->add_option("FILE", command.recording.file, "What to replay; - is standard input");
  auto* demo =
      replay->add_flag("--demo", command.recording.demo, "Replay the recording that is built in");
  file->excludes(demo);
  addSettings(*replay, command.recording);
  replay->add_option("--every", command.every, "Also show the widget every so many seconds")
      ->type_name("SECONDS")
      ->check(checkSpan);
  replay->add_flag("--text", command.text, "Draw the panel instead of printing JSON");
  replay->footer(kReplayExamples);
  return replay;
}

// What is only for recordings.
void refuseForReceivers(const CLI::App& today) {
  for (const char* option : {"--rate", "--suite", "--local"}) {
    if (today.count(option) > 0)
      throw CLI::RequiredError(option + std::string(": --demo or --replay"));
  }
}

// Of a word that is none of the commands the library says only that a command is missing.
int tellWhatIsMissing(const CLI::App& app, const CLI::RequiredError& error) {
  const std::vector<std::string> unknown = app.remaining(true);
  if (unknown.empty()) {
    app.exit(error);
  } else {
    app.exit(CLI::ExtrasError(std::vector{unknown.front()}));
  }
  return wayfell::kBadUsage;
}

int run(int argc, char** argv) {
  CLI::App app("A widget for people outdoors: position, speed, heading, waypoint and track.",
               "wayfell");
  app.set_version_flag("--version", kVersion);
  app.require_subcommand(1);
  wayfell::TodayCommand today;
  const CLI::App* todayCommand = addToday(app, today);
  wayfell::ReplayCommand replay;
  const CLI::App* replayCommand = addReplay(app, replay);
  const wayfell::StoreOptions stores(app);
  const wayfell::ToolOptions tools(app);
  const wayfell::AddressOptions addresses(app);
  for (CLI::App* command : app.get_subcommands(nullptr)) {
    command->set_version_flag("--version", kVersion);
  }
  try {
    app.parse(argc, argv);
    if (todayCommand->parsed() && !today.recording.isChosen()) refuseForReceivers(*todayCommand);
    if (replayCommand->parsed() && !replay.recording.isChosen()) {
      throw CLI::RequiredError("FILE or --demo");
    }
  } catch (const CLI::RequiredError& error) {
    return tellWhatIsMissing(app, error);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? wayfell::kDone : wayfell::kBadUsage;
  }
  if (const auto status = stores.run()) return *status;
  if (const auto status = tools.run()) return *status;
  if (const auto status = addresses.run()) return *status;
  return todayCommand->parsed() ? wayfell::runToday(today) : wayfell::runReplay(replay);
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that goes away shows as a failed write, which ends the program quietly.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "wayfell: %s\n", error.what());
    return wayfell::kBadInput;
  }
}
