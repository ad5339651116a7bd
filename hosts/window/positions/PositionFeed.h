// Something that tells positions, while it is open.
#pragma once

#include <QGeoPositionInfo>
#include <chrono>
#include <functional>
#include <string>

#include "platform/Host.h"

namespace wayfell {

/// Who has said nothing for so long is silent.
inline constexpr std::chrono::seconds kLongestSilence{9};

class PositionFeed {
 public:
  virtual ~PositionFeed() = default;

  /// Called on the loop's thread, between open() and close().
  std::function<void(const QGeoPositionInfo& position)> onPosition;

  virtual void open() = 0;
  /// Nothing of it is watched or timed afterwards.
  virtual void close() = 0;

  /// Which it is: "NMEA from /dev/ttyUSB0".
  virtual std::string name() const = 0;
  /// Why no positions come, in a few words; empty while they do, and while it is closed.
  virtual std::string trouble() const = 0;
  virtual CLAuthorizationStatus authorization() const {
    return CLAuthorizationStatus::authorizedWhenInUse;
  }
};

}  // namespace wayfell
