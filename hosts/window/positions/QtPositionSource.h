// Live positions from what Qt knows to read, and headings from the compass of the machine where it
// has one and lets us. PositionMapping says what is made of them.
//
// Qt's plug-ins are loaded when positions or headings are first asked for. The feed is open while
// positions are asked for, the compass runs while headings are, and only then.
#pragma once

#include <QCompass>
#include <QObject>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/location/KeptAltitude.h"
#include "hosts/window/positions/PositionFeed.h"
#include "platform/CLLocationManager.h"
#include "platform/Host.h"

namespace wayfell {

class QtPositionSource : public LocationSource {
 public:
  /// The clock times positions that have no time. Loop and clock must live on.
  QtPositionSource(IoRunLoop& loop, const Clock& clock, std::unique_ptr<PositionFeed> feed);
  ~QtPositionSource() override;
  QtPositionSource(const QtPositionSource&) = delete;
  QtPositionSource& operator=(const QtPositionSource&) = delete;

  const PositionFeed& feed() const { return *feed_; }
  /// Whether a valid heading has come in the last seconds. A host lets the compass follow the
  /// course while none does.
  bool deliversHeadings() const;

  /// Whether the machine has a compass that may be read.
  bool headingAvailable() const override;
  CLAuthorizationStatus authorizationStatus() const override { return feed_->authorization(); }
  /// GeoClue asks the user by itself, all others need not be asked.
  void requestWhenInUseAuthorization(CLLocationManager& /*manager*/) override {}
  void startUpdatingLocation(CLLocationManager& manager) override;
  void stopUpdatingLocation(CLLocationManager& manager) override;
  void startUpdatingHeading(CLLocationManager& manager) override;
  void stopUpdatingHeading(CLLocationManager& manager) override;

 private:
  void takePosition(const QGeoPositionInfo& info);
  void takeReading();
  void perform(std::function<void()> action);

  IoRunLoop& loop_;
  const Clock& clock_;
  std::unique_ptr<PositionFeed> feed_;
  std::unique_ptr<QCompass> compass_ = std::make_unique<QCompass>();
  CLLocationManager* locationUser_ = nullptr;
  CLLocationManager* headingUser_ = nullptr;
  KeptAltitude altitude_;
  std::optional<double> variation_;  // degrees, east positive
  std::optional<std::chrono::steady_clock::time_point> lastHeading_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // for what is still to be performed
};

}  // namespace wayfell
