#include "hosts/live/OpenSource.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "hosts/live/AutoStage.h"
#include "hosts/live/LiveHost.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/scene/PlayedScene.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

class LiveStage : public Stage {
 public:
  LiveStage(HostRunLoop& loop, const LiveKind& kind, const std::string& where, const Warn& warn)
      : LiveStage(loop, kind.open(loop, where), warn) {}

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return scene_.controller().currentLocation; }
  void tell(const std::string& news) override { scene_.tell(news); }

 private:
  LiveStage(IoRunLoop& loop, LiveSource live, const Warn& warn)
      : source_(std::move(live.source)),
        host_(loop, *source_, warn),
        scene_(host_, std::move(live.status)) {}

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
      scene_(loop, player_, wishes.rate.value_or(1),
             choice_.demo ? Scene::Kind::demo : Scene::Kind::replay, choice_.title()) {
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

std::unique_ptr<Stage> openRecorded(IoRunLoop& loop, const SourceWishes& wishes, const Warn& warn,
                                    std::optional<std::string>& note) {
  try {
    auto stage = std::make_unique<RecordedStage>(loop, wishes, warn);
    note = stage->note();
    return stage;
  } catch (const InputError& error) {
    throw InputError(wishes.source.recording().name() + ": " + error.what());
  }
}

// The kinds that `auto` has looked for: one that is there, if any is, and those before it.
struct Looked {
  const LiveKind* found = nullptr;
  std::vector<LiveKind> missing;
};

Looked lookFor(const Sources& sources, HostRunLoop& loop) {
  Looked looked;
  for (const LiveKind& kind : sources.live()) {
    if (!kind.isThere) continue;
    if (kind.isThere(loop)) {
      looked.found = &kind;
      return looked;
    }
    looked.missing.push_back(kind);
  }
  return looked;
}

std::string missingText(const Looked& looked) {
  std::string names;
  for (const LiveKind& kind : looked.missing) {
    // Translators: of several things none is there: "gpsd and no GeoClue".
    names = names.empty() ? kind.called()
                          : localizedStringWithFormat("%@ and no %@", names, kind.called());
  }
  if (!looked.found) return localizedStringWithFormat("no %@: the demo", names);
  return localizedStringWithFormat("no %@: positions come from %@", names, looked.found->called());
}

OpenedSource openAuto(HostRunLoop& loop, const Sources& sources, SourceWishes wishes,
                      const Warn& warn) {
  const Looked looked = lookFor(sources, loop);
  wishes.source = {looked.found ? looked.found->name : "demo"};
  OpenedSource opened = openSource(loop, sources, wishes, warn);
  if (looked.missing.empty()) return opened;
  opened.missing = missingText(looked);
  const LiveKind& preferred = looked.missing.front();
  if (!preferred.await) return opened;
  opened.stage = std::make_unique<AutoStage>(
      loop, preferred, std::move(opened.stage),
      [&loop, &warn, preferred] { return std::make_unique<LiveStage>(loop, preferred, "", warn); });
  return opened;
}

}  // namespace

OpenedSource openSource(HostRunLoop& loop, const Sources& sources, const SourceWishes& wishes,
                        const Warn& warn) {
  const SourceChoice& source = wishes.source;
  if (source.kind == "auto") return openAuto(loop, sources, wishes, warn);
  OpenedSource opened;
  if (source.isRecording()) {
    opened.stage = openRecorded(loop, wishes, warn, opened.note);
  } else {
    opened.stage = std::make_unique<LiveStage>(loop, sources.live(source.kind), source.where, warn);
  }
  return opened;
}

}  // namespace wayfell
