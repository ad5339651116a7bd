#include "hosts/terminal/ReceiverToday.h"

#include <csignal>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/live/GpsdStatus.h"
#include "hosts/live/LiveHost.h"
#include "hosts/live/LiveScene.h"
#include "hosts/loop/uv/EventLoop.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/ShowScene.h"
#include "hosts/terminal/Terminal.h"

namespace wayfell {
namespace {

// Of the first fix, where the panel is printed once.
constexpr double kLongestWait = 30;  // seconds, as is
constexpr double kPatience = 1;      // before someone who waits is told what for

// Brings the services' warnings to the user: on standard error, but while a scene is on the
// terminal on the scene first, and on standard error when that is over.
class Notices {
 public:
  // While it lives the scene, which must outlive it, is on the terminal.
  class OnScreen {
   public:
    OnScreen(Notices& notices, LiveScene& scene) : notices_(notices) { notices.scene_ = &scene; }
    ~OnScreen() {
      notices_.scene_ = nullptr;
      notices_.sayAll();
    }
    OnScreen(const OnScreen&) = delete;
    OnScreen& operator=(const OnScreen&) = delete;

   private:
    Notices& notices_;
  };

  void warn(const std::string& sentence) {
    last_ = sentence;
    if (!scene_) return complain(sentence);
    scene_->tell(sentence);
    kept_.push_back(sentence);
  }
  const std::optional<std::string>& last() const { return last_; }

 private:
  void sayAll() {
    for (const std::string& sentence : std::exchange(kept_, {})) complain(sentence);
  }

  LiveScene* scene_ = nullptr;
  std::vector<std::string> kept_;
  std::optional<std::string> last_;
};

int printOnce(EventLoop& loop, LiveScene& scene) {
  const auto& fix = scene.controller().currentLocation;
  const std::string seconds = std::to_string(static_cast<int>(kLongestWait)) + " seconds";
  loop.onTurnEnd([&] {
    scene.settle();
    if (fix) loop.stop();
  });
  loop.scheduleTimer(kPatience, false, [&] {
    const Scene::Lines lines = scene.lines();
    remark(lines.title + ": " + lines.warning + "; waiting up to " + seconds + " for a fix");
  });
  loop.scheduleTimer(kLongestWait, false, [&loop] { loop.stop(); });
  loop.run();
  const Scene::Lines lines = scene.lines();
  const int status = printPanel(scene.interface(), "", "Live: " + lines.title);
  if (fix) return status;
  complain(lines.title + ": no fix in " + seconds + " (" + lines.warning + ")");
  return kBadInput;
}

}  // namespace

int runTodayOnReceiver(const GpsdAddress& address) {
  EventLoop loop;
  Notices notices;
  SystemClock clock;
  GpsdSource source(loop, clock, address);
  LiveHost host(loop, source, [&notices](const std::string& sentence) { notices.warn(sentence); });
  LiveScene scene(host, statusOf(source, address));
  if (!Terminal::isThere()) return printOnce(loop, scene);
  std::optional<int> signal;
  {
    const Notices::OnScreen onScreen(notices, scene);
    signal = showScene(loop, scene, notices.last());
  }
  if (signal) std::raise(*signal);
  return kDone;
}

}  // namespace wayfell
