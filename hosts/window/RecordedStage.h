// A recording that plays.
#pragma once

#include <fstream>

#include "hosts/scene/PlayedScene.h"
#include "hosts/scene/Player.h"
#include "hosts/services/texts/CatalogueTexts.h"
#include "hosts/window/Stage.h"

namespace wayfell {

class RecordedStage : public Stage {
 public:
  RecordedStage(QtRunLoop& loop, const StageWishes& wishes, const Warn& warn);

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return widget_->controller().currentLocation; }

 private:
  static std::unique_ptr<ReplayedWidget> withSettings(const RecordingChoice& recording,
                                                      const StringTable& texts);
  void showSnapshotsIn(const std::string& file);

  CatalogueTexts texts_;
  std::unique_ptr<ReplayedWidget> widget_;
  ChosenRecording recording_;
  Player player_;
  PlayedScene scene_;
  std::ofstream snapshots_;
};

}  // namespace wayfell
