// A recording that plays, in step with real time, paused or faster.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/replay/Player.h"
#include "hosts/scene/Playback.h"
#include "hosts/scene/Scene.h"

namespace wayfell {

class PlayedScene : public Scene {
 public:
  /// What is given must live on. `kind` and `title` say what is playing.
  PlayedScene(IoRunLoop& loop, Player& player, double rate, Kind kind, std::string title);
  ~PlayedScene() override;
  PlayedScene(const PlayedScene&) = delete;
  PlayedScene& operator=(const PlayedScene&) = delete;

  const WidgetInterface& interface() const override { return player_.widget().interface(); }
  bool onScreen() const override { return player_.onScreen(); }
  Lines lines() const override;
  Freshness freshness() const override;
  std::optional<std::string> fault() const override { return player_.fault(); }
  /// Which URLs were asked for. A recording opens none.
  std::optional<std::string> takeNews() override;
  std::span<const PanelAction> actions() const override { return kRecordingActions; }
  void suspend() override { catchUp(); }
  void resume() override;
  void catchUp() override;

 protected:
  void letAppear() override { player_.act(event::Appear{}); }
  void letDisappear() override { player_.act(event::Disappear{}); }
  void actItself(const PanelRequest& request) override;

 private:
  void sleep();
  /// Seconds of the recording, of the fix that is shown; none before the first.
  std::optional<double> fixAge() const;

  IoRunLoop& loop_;
  Player& player_;
  Playback playback_;
  Kind kind_;
  std::string title_;
  std::optional<RunLoop::TimerId> timer_;
  int urls_ = 0;          // asked for so far
  std::size_t told_ = 0;  // of those that the host keeps
};

}  // namespace wayfell
