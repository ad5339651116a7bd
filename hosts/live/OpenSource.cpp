#include "hosts/live/OpenSource.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "hosts/live/LiveHost.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/scene/PlayedScene.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

class LiveStage : public Stage {
 public:
  LiveStage(IoRunLoop& loop, LiveSource live, const Warn& warn)
      : source_(std::move(live.source)),
        host_(loop, *source_, warn),
        scene_(host_, std::move(live.status)) {}

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return scene_.controller().currentLocation; }
  void tell(const std::string& news) override { scene_.tell(news); }

 private:
  std::unique_ptr<LocationSource> source_;
  LiveHost host_;
  LiveScene scene_;
};

// Before the player, which plays what happens at the first instant.
std::unique_ptr<ReplayedWidget> widgetWith(const FirstSettings& settings,
                                           const StringTable& texts) {
  auto widget = std::make_unique<ReplayedWidget>();
  widget->host().translations = &texts;
  settings.writeTo(*widget);
  return widget;
}

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

// The source that `auto` stands for here, and what it says of those that are not there.
SourceChoice sourceThatIsThere(HostRunLoop& loop, const Sources& sources,
                               std::optional<std::string>& missing) {
  for (const LiveKind& kind : sources.live()) {
    if (!kind.isThere) continue;
    if (kind.isThere(loop)) {
      if (missing) *missing += ": positions are " + kind.called + "'s";
      return {kind.name};
    }
    missing = (missing ? *missing + " and no " : "no ") + kind.called;
  }
  if (missing) *missing += ": this is the demo";
  return {"demo"};
}

}  // namespace

OpenedSource openSource(HostRunLoop& loop, const Sources& sources, const SourceWishes& wishes,
                        const Warn& warn) {
  OpenedSource opened;
  SourceWishes found = wishes;
  if (wishes.source.kind == "auto") {
    found.source = sourceThatIsThere(loop, sources, opened.missing);
  }
  const SourceChoice& source = found.source;
  if (!source.isRecording()) {
    LiveSource live = sources.live(source.kind).open(loop, source.where);
    opened.stage = std::make_unique<LiveStage>(loop, std::move(live), warn);
    return opened;
  }
  try {
    auto stage = std::make_unique<RecordedStage>(loop, found, warn);
    opened.note = stage->note();
    opened.stage = std::move(stage);
  } catch (const InputError& error) {
    throw InputError(source.recording().name() + ": " + error.what());
  }
  return opened;
}

}  // namespace wayfell
