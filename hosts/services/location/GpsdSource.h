// Live positions and headings, from a gpsd here or elsewhere.
//
//   GpsdSource source(loop, clock, *gpsdAddressOf("localhost:2947"));
//   source.onChange = [&] { show(source.state()); };
//
// It listens while positions or headings are asked for, and only then: it connects at the first
// start and disconnects at the last stop, and while it is stopped nothing of it is watched or
// timed. What is delivered is what was asked for, one fix an instant (FixEpochs), as GpsdFix and
// GpsdReport say. The daemon may come and go at any time (GpsdLink).
//
// One of several receivers is followed, for positions and for headings each: another is taken when
// it loses its fix, is closed, or has been silent for two to three ticks.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/location/FixEpochs.h"
#include "hosts/services/location/FollowedDevice.h"
#include "hosts/services/location/GpsdLink.h"
#include "hosts/services/location/GpsdNotice.h"
#include "hosts/services/location/GpsdReport.h"
#include "hosts/services/location/KeptAltitude.h"
#include "platform/CLLocationManager.h"
#include "platform/Host.h"

namespace wayfell {

/// How far the source has come.
struct GpsdState {
  enum class Kind {
    stopped,     ///< nothing is asked for
    connecting,  ///< for the first time, up to its word on receivers
    waiting,     ///< there is no gpsd: `reason` says why, `nextAttempt` when it is tried again
    noDevice,    ///< gpsd has no receiver
    silent,      ///< gpsd has a receiver, and hears nothing from it
    noFix,       ///< the receiver has no fix
    fix,
  };
  Kind kind = Kind::stopped;
  std::string reason;  ///< of waiting: "Connection refused"
  std::chrono::steady_clock::time_point nextAttempt;
  std::string device;    ///< the path of the receiver followed, or else of gpsd's first; or empty
  bool heading = false;  ///< whether a compass reports

  friend bool operator==(const GpsdState&, const GpsdState&) = default;
};

class GpsdSource : public LocationSource {
 public:
  /// The clock times the fixes of receivers that do not.
  GpsdSource(IoRunLoop& loop, const Clock& clock, const GpsdAddress& address,
             const GpsdIntervals& intervals = {});
  ~GpsdSource() override;

  /// Called after each change of the state.
  std::function<void()> onChange;
  const GpsdState& state() const { return state_; }
  /// Whether a heading has come in the last two to three ticks. A host lets the compass follow the
  /// course while none does.
  bool deliversHeadings() const { return state_.heading; }

  /// A compass may be plugged in at any time.
  bool headingAvailable() const override { return true; }
  CLAuthorizationStatus authorizationStatus() const override {
    return CLAuthorizationStatus::authorizedWhenInUse;
  }
  /// It is granted already.
  void requestWhenInUseAuthorization(CLLocationManager& /*manager*/) override {}
  void startUpdatingLocation(CLLocationManager& manager) override;
  void stopUpdatingLocation(CLLocationManager& manager) override;
  void startUpdatingHeading(CLLocationManager& manager) override;
  void stopUpdatingHeading(CLLocationManager& manager) override;

 private:
  void openOrClose();
  void linkChanged();
  void take(std::string_view line);
  void takeNotice(const GpsdNotice& notice);
  void takePosition(const GpsdReport& report);
  void takeHeading(const GpsdReport& report);
  void tick();
  void waitForParts();
  void stopWaiting();
  void loseFix();
  void deliver(std::vector<CLLocation> fixes);
  void forgetDaemon();
  void update();
  GpsdState::Kind kind() const;
  std::string shownDevice() const;

  IoRunLoop& loop_;
  const Clock& clock_;
  const GpsdIntervals intervals_;
  GpsdLink link_;
  CLLocationManager* locationUser_ = nullptr;
  CLLocationManager* headingUser_ = nullptr;

  GpsdState state_;
  std::optional<std::vector<GpsdDevice>> devices_;  // none until gpsd has told
  int ticksSinceReport_ = 0;

  GpsdDecoder decoder_;
  FixEpochs epochs_;
  KeptAltitude altitude_;
  RunLoop::TimerId partsTimer_ = 0;
  FollowedDevice receiver_;  // followed while it has a fix
  FollowedDevice compass_;
};

}  // namespace wayfell
