#include "hosts/live/RecordedStage.h"

#include <cerrno>
#include <cstring>

#include "hosts/replay/Snapshot.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

// Before the player, which plays what happens at the first instant.
std::unique_ptr<ReplayedWidget> widgetWith(const FirstSettings& settings,
                                           const StringTable& texts) {
  auto widget = std::make_unique<ReplayedWidget>();
  widget->host().translations = &texts;
  settings.writeTo(*widget);
  return widget;
}

}  // namespace

RecordedStage::RecordedStage(IoRunLoop& loop, const SourceWishes& wishes, const Warn& warn)
    : choice_(wishes.source.recording()),
      texts_(userTexts(warn)),
      widget_(widgetWith(wishes.settings, texts_)),
      recording_(choice_, ChosenRecording::Slow::readAll),
      player_(*recording_, *widget_),
      scene_(loop, player_, wishes.rate.value_or(1), choice_.demo ? "DEMO" : "REPLAY",
             choice_.title()) {
  if (!wishes.snapshots.empty()) showSnapshotsIn(wishes.snapshots);
}

std::optional<std::string> RecordedStage::fault() const {
  if (!player_.fault()) return std::nullopt;
  return choice_.name() + ": " + *player_.fault();
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
