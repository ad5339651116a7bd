#include "hosts/window/RecordedStage.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "hosts/replay/Snapshot.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

std::string titleOf(const RecordingChoice& choice) {
  if (choice.demo) return "a walk nobody took";
  if (choice.file == "-") return "from standard input";
  return std::filesystem::path(choice.file).filename().string();
}

}  // namespace

RecordedStage::RecordedStage(QtRunLoop& loop, const StageWishes& wishes, const Warn& warn)
    : texts_(userTexts(warn)),
      widget_(withSettings(wishes.recording, texts_)),
      recording_(wishes.recording, ChosenRecording::Slow::readAll),
      player_(*recording_, *widget_),
      scene_(loop, player_, wishes.rate, wishes.recording.demo ? "DEMO" : "REPLAY",
             titleOf(wishes.recording)) {
  if (!wishes.snapshots.empty()) showSnapshotsIn(wishes.snapshots);
  if (const auto note = (*recording_).note()) warn(*note);
}

// Before the player, which plays what happens at the first instant.
std::unique_ptr<ReplayedWidget> RecordedStage::withSettings(const RecordingChoice& recording,
                                                            const StringTable& texts) {
  auto widget = std::make_unique<ReplayedWidget>();
  widget->host().translations = &texts;
  recording.applySettings(*widget);
  return widget;
}

void RecordedStage::showSnapshotsIn(const std::string& file) {
  snapshots_.open(file, std::ios::app);
  if (!snapshots_) throw InputError(file + ": " + std::strerror(errno));
  player_.onShow = [this] {
    snapshots_ << snapshotLine(*widget_) << std::endl;
    widget_->host().urls.requests.clear();  // each is told of once
  };
}

}  // namespace wayfell
