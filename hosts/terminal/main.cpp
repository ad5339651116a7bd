// The command line of wayfell. It alone knows the library that reads it, which is slow to build.

#include <CLI/CLI.hpp>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <exception>

#include "hosts/replay/Replay.h"
#include "hosts/terminal/ReplayCommand.h"

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

std::string checkSpan(const std::string& text) {
  double seconds = 0;
  const bool number = CLI::detail::lexical_cast(text, seconds);
  if (number && std::isfinite(seconds) && seconds >= wayfell::Replay::kShortestSpan) return "";
  return "expected a number of seconds, at least 0.001";
}

CLI::App* addReplay(CLI::App& app, wayfell::ReplayCommand& command) {
  CLI::App* replay = app.add_subcommand("replay", kReplayHelp);
  auto* file = replay->add_option("FILE", command.file, "What to replay; - is standard input");
  auto* demo = replay->add_flag("--demo", command.demo, "Replay the recording that is built in");
  file->excludes(demo);
  replay
      ->add_option("--suite", command.suite,
                   "Set a value of the shared settings first; a JSON number, true or false "
                   "keeps its type, all else is text (repeatable)")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  replay->add_option("--local", command.local, "Likewise of the widget's own settings")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  replay->add_option("--every", command.every, "Also show the widget every so many seconds")
      ->type_name("SECONDS")
      ->check(checkSpan);
  replay->add_flag("--text", command.text, "Draw the panel instead of printing JSON");
  replay->footer(kReplayExamples);
  return replay;
}

int run(int argc, char** argv) {
  CLI::App app("A widget for people outdoors: position, speed, heading, waypoint and track.",
               "wayfell");
  app.set_version_flag("--version", "wayfell " WAYFELL_VERSION);
  app.require_subcommand(1);
  wayfell::ReplayCommand replay;
  const CLI::App* replayCommand = addReplay(app, replay);
  try {
    app.parse(argc, argv);
    if (replayCommand->parsed() && replay.file.empty() && !replay.demo) {
      throw CLI::RequiredError("FILE or --demo");
    }
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? wayfell::kDone : wayfell::kBadUsage;
  }
  return wayfell::runReplay(replay);
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
