#include "hosts/terminal/ReplayCommand.h"

#include <exception>

#include "hosts/replay/Recording.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PrintedPanel.h"
#include "hosts/terminal/Progress.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

void printPanel(const ReplayedWidget& widget, double seconds, Output& output) {
  for (const std::string& line : printedPanel(widget.interface(), elapsedText(seconds))) {
    output.line(line);
  }
  for (const auto& url : widget.host().urls.requests) {
    output.line("opened " + (url ? url->absoluteString() : "nothing, as the URL was not valid"));
  }
}

void play(const ReplayCommand& command, const std::string& name, Recording& recording,
          ReplayedWidget& widget, Output& output) {
  if (const auto note = recording.note()) complain(name + ": " + *note);
  Progress progress;
  std::optional<double> start;
  const auto elapsed = [&start](double t) {
    if (!start) start = t;
    return t - *start;
  };
  const auto show = [&](ReplayedWidget& shown) {
    progress.clear();
    if (command.text) {
      const double now = shown.host().loop.now().timeIntervalSinceReferenceDate;
      printPanel(shown, elapsed(now), output);
    } else {
      output.line(snapshotLine(shown));
    }
    shown.host().urls.requests.clear();
    return output.ok();
  };
  replay(recording, widget, command.every, show, [&](double t) {
    const double seconds = elapsed(t);
    progress.reach([seconds] { return "replayed " + elapsedText(seconds); });
  });
}

}  // namespace

int runReplay(const ReplayCommand& command) {
  ReplayedWidget widget;
  command.settings.writeTo(widget);
  const std::string name = command.recording.name();
  Output output;
  int status = kDone;
  try {
    const ChosenRecording recording(command.recording);
    play(command, name, *recording, widget, output);
  } catch (const InputError& error) {
    output.flush();
    complain(name + ": " + error.what());
    status = kBadInput;
  }
  return output.finish(status);
}

}  // namespace wayfell
