#include "hosts/terminal/TodayCommand.h"

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <string>

#include "hosts/replay/InputError.h"
#include "hosts/terminal/Elapsed.h"
#include "hosts/terminal/EventLoop.h"
#include "hosts/terminal/LivePanel.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PanelText.h"
#include "hosts/terminal/Player.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TextWidth.h"

namespace wayfell {
namespace {

std::string titleOf(const RecordingChoice& choice) {
  if (choice.demo) return "a walk nobody took";
  if (choice.file == "-") return "from standard input";
  return printable(std::filesystem::path(choice.file).filename().string());
}

void printOnce(Player& player, const RecordingChoice& choice) {
  player.advanceToFirstFix();
  Output output;
  for (const std::string& line :
       panelText(player.widget().interface(), elapsedText(player.elapsed()))) {
    output.line(line);
  }
  output.line((choice.demo ? "Demo: " : "Replay: ") + titleOf(choice));
  output.finish(kDone);
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
  LivePanel panel(loop, terminal, player, command.rate, command.recording.demo ? "DEMO" : "REPLAY",
                  titleOf(command.recording));
  if (note) panel.tell(*note);
  panel.run();
  return endedBy;
}

int show(const TodayCommand& command, bool live) {
  ReplayedWidget widget;
  command.recording.applySettings(widget);
  const ChosenRecording recording(command.recording, ChosenRecording::Slow::readAll);
  Player player(*recording, widget);
  std::optional<int> signal;
  if (live) {
    signal = showLive(player, command, (*recording).note());
  } else {
    printOnce(player, command.recording);
  }
  if (player.fault()) throw InputError(*player.fault());
  if (signal) std::raise(*signal);
  return kDone;
}

}  // namespace

int runToday(const TodayCommand& command) {
  const bool live = Terminal::isThere();
  if (live && command.recording.file == "-" && isatty(STDIN_FILENO) != 0) {
    complain("standard input is the keyboard: the recording cannot come from it");
    return kBadUsage;
  }
  try {
    return show(command, live);
  } catch (const InputError& error) {
    complain(command.recording.name() + ": " + error.what());
    return kBadInput;
  }
}

}  // namespace wayfell
