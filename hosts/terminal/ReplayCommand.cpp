// `wayfell replay`: plays a recording and prints what the widget shows. docs/replay.md is its
// manual.
#include <cmath>
#include <memory>

#include "hosts/live/SourceOptions.h"
#include "hosts/replay/Recording.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PassingLines.h"
#include "hosts/terminal/PrintedPanel.h"
#include "hosts/terminal/Progress.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr const char* kReplayHelp =
    "Replays a recording on the whole widget: prints what it shows, as one line of JSON for each "
    "snapshot. FILE is a GPX track, reports of gpsd (gpspipe -w) or a scenario (JSON Lines).";

constexpr const char* kReplayExamples =
    "Examples:\n"
    "  wayfell replay --demo --text --every 120\n"
    "  wayfell replay hike.gpx --suite units=metric --text\n"
    "  gpspipe -w -n 500 | wayfell replay - --every 10\n"
    "  wayfell replay fault.jsonl --local selectedDatum='Adindan---Sudan' | tail -n 1\n"
    "Exit status: 0 done, 1 the input is bad, 2 the command line is.";

// What the command line asks for.
struct ReplayCommand {
  RecordingChoice recording;
  FirstSettings settings;
  std::optional<double> every;  // seconds
  bool text = false;
};

void printPanel(const std::vector<std::string>& lines, const ReplayedWidget& widget,
                Output& output) {
  for (const std::string& line : lines) output.line(line);
  for (const auto& url : widget.host().urls.requests) {
    output.line("opened " + (url ? url->absoluteString() : "nothing, as the URL was not valid"));
  }
}

void play(const ReplayCommand& command, const std::string& name, ChosenRecording& chosen,
          ReplayedWidget& widget, Output& output) {
  Recording& recording = *chosen;
  Progress progress;
  const auto tell = [&](const std::string& news) {
    progress.clear();
    complain(name + ": " + news);
  };
  const auto note = recording.note();
  if (note) tell(*note);
  std::optional<double> start;
  const auto elapsed = [&start](double t) {
    if (!start) start = t;
    return t - *start;
  };
  const auto panel = [&] {
    const double now = widget.host().loop.now().timeIntervalSinceReferenceDate;
    return printedPanel(widget.interface(), elapsedText(elapsed(now)));
  };
  // A receiver's panel is seen as it goes.
  PassingLines passing(output);
  chosen.onWait = [&] {
    progress.clear();
    if (command.text && widget.loaded()) passing.show(panel());
    output.flush();
  };
  const auto show = [&](ReplayedWidget& shown) {
    progress.clear();
    passing.clear();
    if (command.text) {
      printPanel(panel(), shown, output);
    } else {
      output.line(snapshotLine(shown));
    }
    shown.host().urls.requests.clear();
    return output.ok();
  };
  const auto tellProgress = [&](double t) {
    const double seconds = elapsed(t);
    progress.reach([seconds] { return "replayed " + elapsedText(seconds); });
  };
  replay(recording, widget, command.every, {show, tellProgress, tell});
  output.flush();
  if (recording.note() != note) tell(*recording.note());
}

int runReplay(const ReplayCommand& command) {
  ReplayedWidget widget;
  command.settings.writeTo(widget);
  const std::string name = command.recording.name();
  Output output;
  int status = kDone;
  try {
    ChosenRecording recording(command.recording);
    play(command, name, recording, widget, output);
  } catch (const InputError& error) {
    output.flush();
    complain(name + ": " + error.what());
    status = kBadInput;
  }
  return output.finish(status);
}

}  // namespace

Command replayCommand() {
  const auto command = std::make_shared<ReplayCommand>();
  const auto isSpan = [](double seconds) {
    return std::isfinite(seconds) && seconds >= kShortestSpan;
  };
  Command replaying = {
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
      .optionColumns = 30};
  for (Option& option : firstSettingsOptions(command->settings))
    replaying.options.push_back(option);
  replaying.options.push_back(
      {.name = "--every",
       .help = "Also show the widget every so many seconds",
       .target = &command->every,
       .value = "SECONDS",
       .check = numberThat(
           isSpan, "expected a number of seconds, at least " + shortestText(kShortestSpan))});
  replaying.options.push_back(
      {"--text", "Draw the panel instead of printing JSON", &command->text});
  return replaying;
}

}  // namespace wayfell
