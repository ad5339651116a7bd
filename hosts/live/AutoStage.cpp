#include "hosts/live/AutoStage.h"

#include <utility>

#include "platform/NSBundle.h"

namespace wayfell {

/// The scene of the stage that is shown at the time.
class AutoStage::ShownScene : public Scene {
 public:
  explicit ShownScene(AutoStage& stage) : stage_(stage) {}

  const WidgetInterface& interface() const override { return shown().interface(); }
  bool onScreen() const override { return shown().onScreen(); }
  Lines lines() const override;
  Freshness freshness() const override { return shown().freshness(); }
  std::optional<std::string> fault() const override { return shown().fault(); }
  std::optional<std::string> takeNews() override { return shown().takeNews(); }
  std::span<const PanelAction> actions() const override { return shown().actions(); }
  void settle() override { shown().settle(); }
  void suspend() override { shown().suspend(); }
  void resume() override { shown().resume(); }
  void catchUp() override { shown().catchUp(); }

 protected:
  void letAppear() override { shown().appear(); }
  void letDisappear() override { shown().disappear(); }
  void actItself(const PanelRequest& request) override { shown().act(request); }

 private:
  Scene& shown() const { return stage_.shown_->scene(); }

  AutoStage& stage_;
};

// Where the demo walks somebody could be.
Scene::Lines AutoStage::ShownScene::lines() const {
  Lines lines = shown().lines();
  if (stage_.player()) lines.warning = localized("demo: not your position");
  return lines;
}

AutoStage::AutoStage(HostRunLoop& loop, LiveKind preferred, std::unique_ptr<Stage> instead,
                     Open open)
    : preferred_(std::move(preferred)),
      open_(std::move(open)),
      shown_(std::move(instead)),
      scene_(std::make_unique<ShownScene>(*this)) {
  // Whoever tells that it is there is still at work, and is about to be ended.
  wait_ = preferred_.await(loop, [this, &loop] {
    loop.perform([this, wait = std::weak_ptr(wait_)] {
      if (!wait.expired()) changeOver();
    });
  });
}

AutoStage::~AutoStage() = default;

Scene& AutoStage::scene() { return *scene_; }

void AutoStage::changeOver() {
  wait_.reset();
  const bool onScreen = scene_->onScreen();
  // Before the other is opened: both are the host of all that runs.
  shown_.reset();
  shown_ = open_();
  if (!onScreen) scene_->disappear();
  tell(localizedStringWithFormat("%@ is there now: positions are its", preferred_.called()));
}

}  // namespace wayfell
