// GeoClue, the desktop's location service, by way of Qt's plug-in for it.
#pragma once

#include <QGeoPositionInfoSource>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/window/positions/PositionFeed.h"

namespace wayfell {

/// Whether the system bus knows of a GeoClue. At once where there is no bus.
bool geoclueIsThere();

class GeoclueFeed : public PositionFeed {
 public:
  void open() override;
  void close() override;
  std::string name() const override { return "GeoClue"; }
  std::string trouble() const override;
  /// Denied once GeoClue has refused.
  CLAuthorizationStatus authorization() const override;

 private:
  void fail(QGeoPositionInfoSource::Error error);

  std::unique_ptr<QGeoPositionInfoSource> source_;
  std::string_view trouble_;  // its key
  bool denied_ = false;
};

}  // namespace wayfell
