#include "hosts/terminal/TodayCommand.h"

#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <string>

#include "hosts/replay/InputError.h"
#include "hosts/terminal/Elapsed.h"
#include "hosts/terminal/EventLoop.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PanelText.h"
#include "hosts/terminal/Playback.h"
#include "hosts/terminal/Player.h"
#include "hosts/terminal/Terminal.h"
#include "hosts/terminal/TextWidth.h"
#include "hosts/terminal/TodayScreen.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// Notices that some view has changed.
class ViewWatch : public UIViewObserver {
 public:
  explicit ViewWatch(const WidgetInterface& interface) : interface_(interface) { observe(this); }
  ~ViewWatch() override { observe(nullptr); }
  ViewWatch(const ViewWatch&) = delete;
  ViewWatch& operator=(const ViewWatch&) = delete;

  void viewDidChange(UIView& /*view*/) override { changed_ = true; }
  // A terminal has no picture between the first and the last one.
  void viewDidAnimate(UIView& /*view*/, const UIViewAnimation& /*animation*/) override {
    changed_ = true;
  }
  bool takeChanged() { return std::exchange(changed_, false); }

 private:
  void observe(UIViewObserver* observer) const {
    for (const auto& named : interface_.views()) named.view->setObserver(observer);
  }

  const WidgetInterface& interface_;
  bool changed_ = false;
};

class LivePanel {
 public:
  LivePanel(Player& player, double rate, std::string badge, std::string title,
            const std::optional<std::string>& note)
      : player_(player),
        playback_(player, rate, Playback::Clock::now()),
        watch_(player.widget().interface()),
        ending_(*this),
        screen_(terminal_, player, playback_, std::move(badge), std::move(title)) {
    if (note) screen_.tell(*note);
    loop_.onReadable(
        terminal_.keyboard(), [this] { takeInput(); }, [this] { loop_.stop(); });
    loop_.onWaited([this] { goOn(); });
    loop_.onSignal(SIGWINCH, [this] { resize(); });
    loop_.onSignal(SIGTSTP, [this] { stopForNow(); });
    loop_.onSignal(SIGCONT, [this] { resume(); });
  }

  // Returns the signal that ended it, if one did.
  std::optional<int> run() {
    redraw();
    loop_.setWait(playback_.wait());
    loop_.run();
    return endedBy_;
  }

 private:
  // Watches for the signals that end a program. It comes before the terminal, whose library would
  // otherwise watch for some itself.
  struct Ending {
    explicit Ending(LivePanel& panel) {
      for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        panel.loop_.onSignal(signal, [&panel, signal] {
          panel.endedBy_ = signal;
          panel.loop_.stop();
        });
      }
    }
  };

  void redraw() {
    watch_.takeChanged();
    screen_.draw();
  }

  // Plays what is due, and sees to it that the next is played in time.
  void goOn() {
    playback_.catchUp(Playback::Clock::now());
    showChanges();
    loop_.setWait(playback_.wait());
  }

  void showChanges() {
    tellOfURLs();
    if (watch_.takeChanged() || screen_.linesHaveChanged()) redraw();
  }

  void tellOfURLs() {
    auto& requests = player_.widget().host().urls.requests;
    if (requests.empty()) return;
    const auto& url = requests.back();
    urls_ += static_cast<int>(requests.size());
    std::string message = urls_ == 1 ? "Open: " : stringWithFormat("Open %d: ", urls_);
    screen_.tell(message.append(url ? url->absoluteString() : "no valid URL"));
    requests.clear();
    redraw();
  }

  void takeInput() {
    playback_.catchUp(Playback::Clock::now());
    while (const auto input = terminal_.read()) {
      screen_.tell("");
      if (const auto* key = std::get_if<KeyPress>(&*input)) press(key->key);
      if (const auto* click = std::get_if<Click>(&*input)) touch(screen_.touchAt(*click));
    }
    redraw();
    goOn();
  }

  void press(char32_t key) {
    if (screen_.showsKeys()) return screen_.toggleKeys();
    switch (key) {
      case U'0':
      case U'1':
      case U'2':
      case U'3':
      case U'4':
        return touch(Touch{"coordinateControl", static_cast<int>(key - U'0')});
      case U't':
      case U'\t':
      case kEnterKey:
        return touch(Touch{"toggleViewButton"});
      case U'o':
        return touch(Touch{openLabelName(player_.widget().interface())});
      case U'h':
        return player_.onScreen() ? player_.act(event::Disappear{}) : player_.act(event::Appear{});
      case U' ':
        return playback_.togglePause();
      case U'.':
      case kRightKey:
        if (playback_.paused()) playback_.step();
        return;
      case U'+':
        return playback_.faster();
      case U'-':
        return playback_.slower();
      case U'?':
        return screen_.toggleKeys();
      case U'q':
        return loop_.stop();
      default:
        return;
    }
  }

  // What is hidden cannot be touched.
  void touch(const std::optional<Touch>& touch) {
    if (!touch || !player_.onScreen()) return;
    if (touch->view == "coordinateControl") {
      player_.act(event::PickSegment{touch->segment});
    } else {
      player_.act(event::Tap{std::string(touch->view)});
    }
  }

  void resize() {
    terminal_.resize();
    redraw();
  }

  void stopForNow() {
    playback_.catchUp(Playback::Clock::now());
    terminal_.suspend();
    loop_.raiseDefault(SIGTSTP);
    resume();
    playback_.skipTo(Playback::Clock::now());
  }

  void resume() {
    terminal_.resume();
    redraw();
  }

  Player& player_;
  Playback playback_;
  ViewWatch watch_;
  EventLoop loop_;
  Ending ending_;
  Terminal terminal_;
  TodayScreen screen_;
  int urls_ = 0;
  std::optional<int> endedBy_;
};

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

int show(const TodayCommand& command, bool live) {
  const RecordingChoice& choice = command.recording;
  std::optional<int> signal;
  ReplayedWidget widget;
  choice.applySettings(widget);
  const ChosenRecording recording(choice, ChosenRecording::Slow::readAll);
  Player player(*recording, widget);
  if (live) {
    signal = LivePanel(player, command.rate, choice.demo ? "DEMO" : "REPLAY", titleOf(choice),
                       (*recording).note())
                 .run();
  } else {
    printOnce(player, choice);
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
