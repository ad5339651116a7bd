// A recording that plays.
#pragma once

#include <fstream>
#include <memory>

#include "hosts/live/OpenSource.h"
#include "hosts/live/Stage.h"
#include "hosts/scene/PlayedScene.h"
#include "hosts/services/texts/CatalogueTexts.h"

namespace wayfell {

class RecordedStage : public Stage {
 public:
  /// Throws InputError for what cannot be read. The source is a recording.
  RecordedStage(IoRunLoop& loop, const SourceWishes& wishes, const Warn& warn);

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return widget_->controller().currentLocation; }
  Player* player() override { return &player_; }
  std::optional<std::string> fault() const override;
  /// What the user should know of how it is read.
  std::optional<std::string> note() const { return (*recording_).note(); }

 private:
  void showSnapshotsIn(const std::string& file);

  RecordingChoice choice_;
  CatalogueTexts texts_;
  std::unique_ptr<ReplayedWidget> widget_;
  ChosenRecording recording_;
  Player player_;
  PlayedScene scene_;
  std::ofstream snapshots_;
};

}  // namespace wayfell
