#include "hosts/terminal/TodayCommand.h"

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <string>

#include "hosts/replay/InputError.h"
#include "hosts/scene/Elapsed.h"
#include "hosts/scene/PlayedScene.h"
#include "hosts/scene/Player.h"
#include "hosts/terminal/EventLoop.h"
#include "hosts/terminal/LivePanel.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PanelText.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TextWidth.h"

namespace wayfell {
namespace {

std::string titleOf(const RecordingChoice& choice) {
  if (choice.demo) return "a walk nobody took";
  if (choice.file == "-") return "from standard input";
  return printable(std::filesystem::path(choice.file).filename().string());
}

int printOnce(Player& player, const RecordingChoice& choice) {
  player.advanceToFirstFix();
  Output output;
  for (const std::string& line :
       panelText(player.widget().interface(), elapsedText(player.elapsed()))) {
    output.line(line);
  }
  output.line((choice.demo ? "Demo: " : "Replay: ") + titleOf(choice));
  return output.finish(kDone);
}

// Returns the signal that ended it, if one did.
std::optional<int> showLive(Player& player, const TodayCommand& command,
                            const std::optional<std::string>& note) {
  EventLoop loop;
  std::optional<int> endedBy;
  // Before the terminal, whose library would otherwise watch for some of them itself.
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    loop.onSignal(signal, [&loop, &endedBy, signal] {
      endedBy = signal;
      loop.stop();
    });
  }
  Terminal terminal;
  PlayedScene scene(loop, player, command.rate, command.recording.demo ? "DEMO" : "REPLAY",
                    titleOf(command.recording));
  LivePanel panel(loop, terminal, scene);
  if (note) panel.tell(*note);
  panel.run();
  return endedBy;
}

int show(ReplayedWidget& widget, const TodayCommand& command, bool live) {
  const ChosenRecording recording(command.recording, ChosenRecording::Slow::readAll);
  Player player(*recording, widget);
  int status = kDone;
  if (live) {
    const auto signal = showLive(player, command, (*recording).note());
    if (signal) std::raise(*signal);
  } else {
    status = printOnce(player, command.recording);
  }
  if (player.fault()) throw InputError(*player.fault());
  return status;
}

}  // namespace

int runToday(const TodayCommand& command) {
  const bool live = Terminal::isThere();
  if (live && command.recording.file == "-" && isatty(STDIN_FILENO) != 0) {
    complain("standard input is the keyboard: the recording cannot come from it");
    return kBadUsage;
  }
  ReplayedWidget widget;
  try {
    command.recording.applySettings(widget);
  } catch (const InputError& error) {
    complain(error.what());
    return kBadUsage;
  }
  try {
    return show(widget, command, live);
  } catch (const InputError& error) {
    complain(command.recording.name() + ": " + error.what());
    return kBadInput;
  }
}

}  // namespace wayfell
