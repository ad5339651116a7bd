// GeoClue, the desktop's location service, by way of Qt's plug-in for it. The plug-in asks once and
// does not notice when the service goes: after a refusal, or when there is no service, it is asked
// again (RetryDelay), as agents and services come late, and users change their minds.
#pragma once

#include <QDBusServiceWatcher>
#include <QGeoPositionInfoSource>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/RetryDelay.h"
#include "hosts/window/positions/PositionFeed.h"

namespace wayfell {

/// Whether the system bus knows of a GeoClue. At once where there is no bus.
bool geoclueIsThere();

class GeoclueFeed : public PositionFeed {
 public:
  explicit GeoclueFeed(IoRunLoop& loop, const RetryDelays& delays = {});
  ~GeoclueFeed() override { close(); }

  void open() override;
  void close() override;
  std::string name() const override { return "GeoClue"; }
  std::string trouble() const override;
  /// Denied while GeoClue refuses.
  CLAuthorizationStatus authorization() const override;

 private:
  void begin();
  void end();
  void takePosition(const QGeoPositionInfo& position);
  void takeError(QGeoPositionInfoSource::Error error);
  void fail(std::string_view trouble);

  IoRunLoop& loop_;
  RetryDelay delay_;
  std::shared_ptr<bool> attempt_;  // outlived by what its source may still report
  std::unique_ptr<QGeoPositionInfoSource> source_;
  std::unique_ptr<QDBusServiceWatcher> watcher_;
  std::optional<RunLoop::TimerId> timer_;
  std::string_view trouble_;  // its key
  bool denied_ = false;
};

}  // namespace wayfell
