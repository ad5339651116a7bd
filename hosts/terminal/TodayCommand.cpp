// `wayfell today`: the panel in a terminal, live or on a recording.
#include <unistd.h>

#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/live/SourceOptions.h"
#include "hosts/loop/uv/EventLoop.h"
#include "hosts/panel/PanelKeys.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PrintedPanel.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TodayScreen.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr const char* kTodayHelp =
    "Shows the panel in the terminal: on the receiver of the gpsd here, where there is none on the "
    "built-in demo; or on what the options choose. FILE is a GPX track, reports of gpsd (gpspipe "
    "-w) or a scenario (JSON Lines). Without a terminal it prints the panel once, as it stands at "
    "the first fix.";

constexpr const char* kTodayMore =
    "A click on a format, on [Open], on the mark beside it or on a line of the keys does what "
    "their "
    "keys do; one on the line of a hidden panel shows it.\n\n";

constexpr const char* kTodayExamples =
    "\n"
    "Examples:\n"
    "  wayfell today\n"
    "  wayfell today --source gpsd=truck.local\n"
    "  wayfell today --replay hike.gpx --rate 10 --suite units=metric\n"
    "  zcat log.gz | wayfell today --replay -     all of it is read first\n"
    "  wayfell today --demo --rate 0              paused from the start\n"
    "Exit status: 0 done, 1 the input is bad or no fix came, 2 the command line is bad.";

constexpr int kLongestWait = 30;  // seconds, for the first fix where the panel is printed once
constexpr double kPatience = 1;   // before someone who waits is told what for

// Brings the services' warnings to the user: on standard error, but while a stage is on the
// terminal on the stage first, and on standard error when that is over. What is repeated is there
// once.
class Notices {
 public:
  void warn(const std::string& sentence) {
    last_ = sentence;
    if (!stage_) return complain(sentence);
    stage_->tell(sentence);
    if (kept_.empty() || kept_.back() != sentence) kept_.push_back(sentence);
  }
  void showOn(Stage& stage) { stage_ = &stage; }
  void leave() {
    stage_ = nullptr;
    for (const std::string& sentence : std::exchange(kept_, {})) complain(sentence);
  }
  const std::optional<std::string>& last() const { return last_; }

 private:
  Stage* stage_ = nullptr;
  std::vector<std::string> kept_;
  std::optional<std::string> last_;
};

// The panel as text, and the line below it. The caption stands in the frame on the right.
int printPanel(const WidgetInterface& interface, const std::string& caption,
               const std::string& below) {
  Output output;
  for (const std::string& line : printedPanel(interface, caption)) output.line(line);
  output.line(below);
  return output.finish(kDone);
}

int printRecording(Stage& stage, Player& player) {
  player.advanceToFirstFix();
  const Scene::Lines lines = stage.scene().lines();
  const char* const kind =
      lines.kind == Scene::Kind::demo ? textKey("Demo: %@") : textKey("Replay: %@");
  return printPanel(stage.scene().interface(), elapsedText(player.elapsed()),
                    localizedStringWithFormat(kind, lines.title));
}

int printLive(EventLoop& loop, Stage& stage) {
  Scene& scene = stage.scene();
  const std::string seconds = std::to_string(kLongestWait);
  loop.onTurnEnd([&] {
    scene.settle();
    if (stage.fix()) loop.stop();
  });
  loop.scheduleTimer(kPatience, false, [&] {
    const Scene::Lines lines = scene.lines();
    remark(localizedStringWithFormat("%@: %@; waiting up to %@ seconds for a fix", lines.title,
                                     lines.warning, seconds));
  });
  loop.scheduleTimer(kLongestWait, false, [&loop] { loop.stop(); });
  loop.run();
  const Scene::Lines lines = scene.lines();
  const int status =
      printPanel(scene.interface(), "", localizedStringWithFormat("Live: %@", lines.title));
  if (stage.fix()) return status;
  complain(localizedStringWithFormat("%@: no fix in %@ seconds (%@)", lines.title, seconds,
                                     lines.warning));
  return kBadInput;
}

int printOnce(EventLoop& loop, const OpenedSource& opened) {
  Player* const player = opened.stage->player();
  const int status =
      player ? printRecording(*opened.stage, *player) : printLive(loop, *opened.stage);
  if (opened.missing) complain(*opened.missing);
  return status;
}

// Until the user quits or a signal ends it, which is then returned. The note is told until the
// first key.
std::optional<int> showScene(EventLoop& loop, Scene& scene,
                             const std::optional<std::string>& note) {
  std::optional<int> endedBy;
  // Before the terminal, whose library would otherwise watch for some of them itself.
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    loop.onSignal(signal, [&loop, &endedBy, signal] {
      endedBy = signal;
      loop.stop();
    });
  }
  Terminal terminal;
  TodayScreen screen(loop, terminal, scene);
  if (note) screen.tell(*note);
  screen.run();
  return endedBy;
}

std::optional<int> showUntilEnd(EventLoop& loop, const OpenedSource& opened, Notices& notices) {
  std::optional<std::string> note = opened.missing;
  if (!note) note = opened.note;
  if (!note) note = notices.last();
  notices.showOn(*opened.stage);
  const std::optional<int> endedBy = showScene(loop, opened.stage->scene(), note);
  notices.leave();
  return endedBy;
}

int show(const Sources& sources, const SourceWishes& wishes, std::optional<int>& endedBy) {
  EventLoop loop;
  Notices notices;
  const Warn warn = [&notices](const std::string& sentence) { notices.warn(sentence); };
  const OpenedSource opened = openSource(loop, sources, wishes, warn);
  int status = kDone;
  if (Terminal::isThere()) {
    endedBy = showUntilEnd(loop, opened, notices);
  } else {
    status = printOnce(loop, opened);
  }
  const auto fault = opened.stage->fault();
  if (fault && !endedBy) throw InputError(*fault);
  return status;
}

// Shows the panel until the user quits or a signal ends it, which then ends the process. Where
// there is no terminal to show it on, prints it once, as it stands at the first fix.
int runToday(const Sources& sources, const SourceWishes& wishes) {
  const bool readsInput = wishes.source.isRecording() && wishes.source.where == "-";
  if (readsInput && Terminal::isThere() && isatty(STDIN_FILENO) != 0) {
    complain("standard input is the keyboard: the recording cannot come from it");
    return kBadUsage;
  }
  std::optional<int> endedBy;
  const int status = show(sources, wishes, endedBy);
  if (endedBy) std::raise(*endedBy);
  return status;
}

}  // namespace

Command todayCommand() {
  static const Sources sources;
  const auto wishes = std::make_shared<SourceWishes>();
  Command today = {.name = "today",
                   .help = kTodayHelp,
                   .more = kTodayMore +
                           keysHelp(std::array{PanelAction::tellKeys, PanelAction::quit}) +
                           kTodayExamples,
                   .run = [wishes] { return runToday(sources, *wishes); },
                   .optionColumns = 30};
  addSourceOptions(today, sources, *wishes);
  return today;
}

}  // namespace wayfell
