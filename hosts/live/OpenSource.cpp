#include "hosts/live/OpenSource.h"

#include <utility>

#include "hosts/live/LiveStage.h"
#include "hosts/live/RecordedStage.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

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
