#include "hosts/terminal/TodayCommand.h"

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <string>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/scene/PlayedScene.h"
#include "hosts/scene/Player.h"
#include "hosts/services/location/GpsdProbe.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/ReceiverToday.h"
#include "hosts/terminal/ShowScene.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

std::string titleOf(const RecordingChoice& choice) {
  if (choice.demo) return "a walk nobody took";
  if (choice.file == "-") return "from standard input";
  return printable(std::filesystem::path(choice.file).filename().string());
}

int printOnce(Player& player, const RecordingChoice& choice) {
  player.advanceToFirstFix();
  return printPanel(player.widget().interface(), elapsedText(player.elapsed()),
                    (choice.demo ? "Demo: " : "Replay: ") + titleOf(choice));
}

// Returns the signal that ended it, if one did.
std::optional<int> showLive(Player& player, const TodayCommand& command,
                            const std::optional<std::string>& note) {
  EventLoop loop;
  PlayedScene scene(loop, player, command.rate, command.recording.demo ? "DEMO" : "REPLAY",
                    titleOf(command.recording));
  return showScene(loop, scene, note);
}

int show(ReplayedWidget& widget, const TodayCommand& command,
         const std::optional<std::string>& note) {
  const ChosenRecording recording(command.recording, ChosenRecording::Slow::readAll);
  Player player(*recording, widget);
  int status = kDone;
  if (Terminal::isThere()) {
    const auto signal = showLive(player, command, note ? note : (*recording).note());
    if (signal) std::raise(*signal);
  } else {
    status = printOnce(player, command.recording);
    if (note) complain(*note);
  }
  if (player.fault()) throw InputError(*player.fault());
  return status;
}

int runOnRecording(const TodayCommand& command, const std::optional<std::string>& note = {}) {
  if (Terminal::isThere() && command.recording.file == "-" && isatty(STDIN_FILENO) != 0) {
    complain("standard input is the keyboard: the recording cannot come from it");
    return kBadUsage;
  }
  const CatalogueTexts texts = userTexts(complain);
  ReplayedWidget widget;
  widget.host().translations = &texts;
  try {
    command.recording.applySettings(widget);
  } catch (const InputError& error) {
    complain(error.what());
    return kBadUsage;
  }
  try {
    return show(widget, command, note);
  } catch (const InputError& error) {
    complain(command.recording.name() + ": " + error.what());
    return kBadInput;
  }
}

}  // namespace

int runToday(const TodayCommand& command) {
  if (command.recording.isChosen()) return runOnRecording(command);
  if (command.gpsd) return runTodayOnReceiver(*command.gpsd);
  const GpsdAddress usual;
  if (gpsdAnswers(usual)) return runTodayOnReceiver(usual);
  TodayCommand demo = command;
  demo.recording.demo = true;
  return runOnRecording(demo, "no gpsd at " + usual.text() + ": this is the demo");
}

}  // namespace wayfell
