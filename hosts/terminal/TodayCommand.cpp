#include "hosts/terminal/TodayCommand.h"

#include <unistd.h>

#include <csignal>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/ShowScene.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

constexpr int kLongestWait = 30;  // seconds, for the first fix where the panel is printed once
constexpr double kPatience = 1;   // before someone who waits is told what for

// Brings the services' warnings to the user: on standard error, but while a stage is on the
// terminal on the stage first, and on standard error when that is over.
class Notices {
 public:
  // While it lives the stage, which must outlive it, is on the terminal.
  class OnScreen {
   public:
    OnScreen(Notices& notices, Stage& stage) : notices_(notices) { notices.stage_ = &stage; }
    ~OnScreen() {
      notices_.stage_ = nullptr;
      notices_.sayAll();
    }
    OnScreen(const OnScreen&) = delete;
    OnScreen& operator=(const OnScreen&) = delete;

   private:
    Notices& notices_;
  };

  void warn(const std::string& sentence) {
    last_ = sentence;
    if (!stage_) return complain(sentence);
    stage_->tell(sentence);
    kept_.push_back(sentence);
  }
  const std::optional<std::string>& last() const { return last_; }

 private:
  void sayAll() {
    for (const std::string& sentence : std::exchange(kept_, {})) complain(sentence);
  }

  Stage* stage_ = nullptr;
  std::vector<std::string> kept_;
  std::optional<std::string> last_;
};

int printRecording(Stage& stage, Player& player) {
  player.advanceToFirstFix();
  const Scene::Lines lines = stage.scene().lines();
  const std::string kind = lines.badge == "DEMO" ? "Demo: " : "Replay: ";
  return printPanel(stage.scene().interface(), elapsedText(player.elapsed()), kind + lines.title);
}

int printLive(EventLoop& loop, Stage& stage) {
  Scene& scene = stage.scene();
  const std::string seconds = std::to_string(kLongestWait) + " seconds";
  loop.onTurnEnd([&] {
    scene.settle();
    if (stage.fix()) loop.stop();
  });
  loop.scheduleTimer(kPatience, false, [&] {
    const Scene::Lines lines = scene.lines();
    remark(lines.title + ": " + lines.warning + "; waiting up to " + seconds + " for a fix");
  });
  loop.scheduleTimer(kLongestWait, false, [&loop] { loop.stop(); });
  loop.run();
  const Scene::Lines lines = scene.lines();
  const int status = printPanel(scene.interface(), "", "Live: " + lines.title);
  if (stage.fix()) return status;
  complain(lines.title + ": no fix in " + seconds + " (" + lines.warning + ")");
  return kBadInput;
}

int printOnce(EventLoop& loop, const OpenedSource& opened) {
  Player* const player = opened.stage->player();
  const int status =
      player ? printRecording(*opened.stage, *player) : printLive(loop, *opened.stage);
  if (opened.missing) complain(*opened.missing);
  return status;
}

// Returns the signal that ended it, if one did.
std::optional<int> showUntilEnd(EventLoop& loop, const OpenedSource& opened, Notices& notices) {
  const Notices::OnScreen onScreen(notices, *opened.stage);
  std::optional<std::string> note = opened.missing;
  if (!note) note = opened.note;
  if (!note) note = notices.last();
  return showScene(loop, opened.stage->scene(), note);
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
  if (const auto fault = opened.stage->fault()) throw InputError(*fault);
  return status;
}

}  // namespace

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

}  // namespace wayfell
