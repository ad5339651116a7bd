#include "hosts/window/Stage.h"

#include <utility>

#include "hosts/live/GpsdStatus.h"
#include "hosts/services/location/GpsdProbe.h"
#include "hosts/window/LiveStage.h"
#include "hosts/window/RecordedStage.h"
#include "hosts/window/positions/GeoclueFeed.h"
#include "hosts/window/positions/NmeaFeed.h"
#include "hosts/window/positions/QtPositionSource.h"

namespace wayfell {
namespace {

const Clock& systemClock() {
  static const SystemClock clock;
  return clock;
}

// Opens the stage of each choice.
struct Opening {
  QtRunLoop& loop;
  StageWishes& wishes;
  const Warn& warn;

  std::unique_ptr<Stage> operator()(const source::Automatic& /*choice*/) const {
    if (gpsdAnswers({})) return (*this)(source::Gpsd{});
    const std::string missing = "no gpsd at " + GpsdAddress().text();
    if (geoclueIsThere()) {
      warn(missing + ": positions are GeoClue's");
      return (*this)(source::Geoclue{});
    }
    warn(missing + " and no GeoClue: this is the demo");
    return (*this)(source::Demo{});
  }
  std::unique_ptr<Stage> operator()(const source::Gpsd& gpsd) const {
    auto source = std::make_unique<GpsdSource>(loop, systemClock(), gpsd.address);
    SourceStatus status = statusOf(*source, gpsd.address);
    return std::make_unique<LiveStage>(loop, std::move(source), std::move(status), warn);
  }
  std::unique_ptr<Stage> operator()(const source::Replay& replay) const {
    wishes.recording.file = replay.file;
    return std::make_unique<RecordedStage>(loop, wishes, warn);
  }
  std::unique_ptr<Stage> operator()(const source::Demo& /*choice*/) const {
    wishes.recording.demo = true;
    return std::make_unique<RecordedStage>(loop, wishes, warn);
  }
  std::unique_ptr<Stage> operator()(const source::Geoclue& /*choice*/) const {
    return onFeed(std::make_unique<GeoclueFeed>());
  }
  std::unique_ptr<Stage> operator()(const source::NmeaDevice& device) const {
    return onFeed(nmeaFromDevice(loop, device.path));
  }
  std::unique_ptr<Stage> operator()(const source::NmeaServer& server) const {
    return onFeed(nmeaFromServer(loop, server.host, server.port));
  }

  std::unique_ptr<Stage> onFeed(std::unique_ptr<PositionFeed> feed) const {
    auto source = std::make_unique<QtPositionSource>(loop, systemClock(), std::move(feed));
    SourceStatus status = {[&feed = source->feed()] { return feed.name(); },
                           [&feed = source->feed()] { return feed.trouble(); },
                           [&source = *source] { return source.deliversHeadings(); }};
    return std::make_unique<LiveStage>(loop, std::move(source), std::move(status), warn);
  }
};

}  // namespace

std::unique_ptr<Stage> openStage(QtRunLoop& loop, StageWishes wishes, const Warn& warn) {
  const SourceChoice source = wishes.source;
  return std::visit(Opening{loop, wishes, warn}, source);
}

}  // namespace wayfell
