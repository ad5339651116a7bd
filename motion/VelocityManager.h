// Turns the stream of fixes into a steady speed for display, and keeps the altitude's statistics.
//
// Each plausible fix gives a speed from the last three fixes and the receiver's own speed. Two
// clocks, of 2 and 5 seconds, move the published averageSpeed towards it in bounded steps; 7
// seconds without a plausible fix count as standing still. Implausible fixes, among them those
// with a negative horizontal accuracy, change nothing at all.
//
//   auto manager = std::make_shared<VelocityManager>()->init();
//   manager->updateSpeedWithLocation(fix);
//
// Metres, seconds, metres per second throughout, unless a property says otherwise. Times are the
// fixes' own: fixes with equal time stamps give infinite or undefined results, which are passed on
// as computed. One thread: the one whose run loop carries the timers.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "motion/VelocityManagerDelegate.h"
#include "platform/CLLocation.h"
#include "platform/NSTimer.h"

namespace wayfell {

/// Which clock drives the published speed.
enum class PaceTimerClock { twoSeconds, fiveSeconds };

class VelocityManager : public std::enable_shared_from_this<VelocityManager> {
 public:
  /// The manager stands still until it is told to init. It belongs in a std::shared_ptr.
  VelocityManager() = default;
  virtual ~VelocityManager() = default;
  VelocityManager(const VelocityManager&) = delete;
  VelocityManager& operator=(const VelocityManager&) = delete;

  /// Starts the clocks; call it, or initWithDelegate, once. Returns the manager.
  std::shared_ptr<VelocityManager> init();

  /// Sets both totals to 0, and only them: the next climb or descent is measured from the
  /// altitude that counted last.
  void resetAltitude();

  // All that a subclass may override. The manager itself uses the accessors of the published
  // properties (delegate, averageSpeed, averageAltitude, verticalSpeed, glideRatio, slope,
  // slopeAngle, altitudeAscent, altitudeDescent), so that an override sees every update; the
  // others it reads and writes directly.

  /// Held strongly: a delegate that owns its manager has to let go of one of the two.
  virtual std::shared_ptr<VelocityManagerDelegate> delegate() const { return delegate_; }
  virtual void setDelegate(std::shared_ptr<VelocityManagerDelegate> delegate) {
    delegate_ = std::move(delegate);
  }
  /// The last plausible fix, and the one before it; the first fix is both.
  virtual const std::optional<CLLocation>& currentLocation() const { return currentLocation_; }
  virtual void setCurrentLocation(const std::optional<CLLocation>& fix) { currentLocation_ = fix; }
  virtual const std::optional<CLLocation>& previousLocation() const { return previousLocation_; }
  virtual void setPreviousLocation(const std::optional<CLLocation>& fix) {
    previousLocation_ = fix;
  }
  /// From the last plausible fix.
  virtual double calculatedAverageSpeed() const { return calculatedAverageSpeed_; }
  virtual void setCalculatedAverageSpeed(double speed) { calculatedAverageSpeed_ = speed; }
  /// The mean of the last 3 calculatedAverageSpeed.
  virtual double rollingAverageSpeed() const { return rollingAverageSpeed_; }
  virtual void setRollingAverageSpeed(double speed) { rollingAverageSpeed_ = speed; }
  /// The speed to show. Only the clocks and the zero timer change it.
  virtual double averageSpeed() const { return averageSpeed_; }
  virtual void setAverageSpeed(double speed) { averageSpeed_ = speed; }
  /// The mean of the last 3 altitudes.
  virtual double averageAltitude() const { return averageAltitude_; }
  virtual void setAverageAltitude(double altitude) { averageAltitude_ = altitude; }
  /// The change of averageAltitude per second between the last two fixes; positive upwards.
  virtual double verticalSpeed() const { return verticalSpeed_; }
  virtual void setVerticalSpeed(double speed) { verticalSpeed_ = speed; }
  /// Whether the zero timer has fired since the last plausible fix.
  virtual bool zeroSpeed() const { return zeroSpeed_; }
  virtual void setZeroSpeed(bool zero) { zeroSpeed_ = zero; }
  // Newest first; at most 3, 3, 15 and 15 entries. The last two hold distances, and changes of
  // averageAltitude, between consecutive plausible fixes.
  virtual const std::vector<double>& rollingAverageSpeedArray() const {
    return rollingAverageSpeedArray_;
  }
  virtual void setRollingAverageSpeedArray(std::vector<double> speeds) {
    rollingAverageSpeedArray_ = std::move(speeds);
  }
  virtual const std::vector<double>& rollingAverageAltitudeArray() const {
    return rollingAverageAltitudeArray_;
  }
  virtual void setRollingAverageAltitudeArray(std::vector<double> altitudes) {
    rollingAverageAltitudeArray_ = std::move(altitudes);
  }
  virtual const std::vector<double>& glideRatioDistanceArray() const {
    return glideRatioDistanceArray_;
  }
  virtual void setGlideRatioDistanceArray(std::vector<double> distances) {
    glideRatioDistanceArray_ = std::move(distances);
  }
  virtual const std::vector<double>& glideRatioAltitudeArray() const {
    return glideRatioAltitudeArray_;
  }
  virtual void setGlideRatioAltitudeArray(std::vector<double> changes) {
    glideRatioAltitudeArray_ = std::move(changes);
  }
  /// Mean distance over mean change of altitude; negative when descending, 0 on the level.
  virtual double glideRatio() const { return glideRatio_; }
  virtual void setGlideRatio(double ratio) { glideRatio_ = ratio; }
  /// 1 / glideRatio; on the level it stays what it was, and so does its angle.
  virtual double slope() const { return slope_; }
  virtual void setSlope(double slope) { slope_ = slope; }
  /// Degrees, -90 to 90.
  virtual double slopeAngle() const { return slopeAngle_; }
  virtual void setSlopeAngle(double angle) { slopeAngle_ = angle; }
  /// The averageAltitude up to which ascent and descent are counted; none before the first.
  virtual std::optional<double> lastMeasuredAltitude() const { return lastMeasuredAltitude_; }
  virtual void setLastMeasuredAltitude(std::optional<double> altitude) {
    lastMeasuredAltitude_ = altitude;
  }
  /// Totals; both positive.
  virtual double altitudeAscent() const { return altitudeAscent_; }
  virtual void setAltitudeAscent(double ascent) { altitudeAscent_ = ascent; }
  virtual double altitudeDescent() const { return altitudeDescent_; }
  virtual void setAltitudeDescent(double descent) { altitudeDescent_ = descent; }
  /// Fires 7 seconds after the last plausible fix, and keeps the manager alive until then; null
  /// before the first one.
  virtual std::shared_ptr<NSTimer> zeroTimer() const { return zeroTimer_; }
  virtual void setZeroTimer(std::shared_ptr<NSTimer> timer) { zeroTimer_ = std::move(timer); }
  virtual PaceTimerClock paceTimerClock() const { return paceTimerClock_; }
  virtual void setPaceTimerClock(PaceTimerClock clock) { paceTimerClock_ = clock; }

  /// As init, with a delegate, which may be null.
  virtual std::shared_ptr<VelocityManager> initWithDelegate(
      std::shared_ptr<VelocityManagerDelegate> delegate);
  /// Starts both clocks for good. They do not keep the manager alive.
  virtual void startTimers();
  /// Takes a fix, which may be one that the manager holds. Its altitude counts whatever its
  /// vertical accuracy.
  virtual void updateSpeedWithLocation(CLLocation location);
  virtual void twoSecondTick();
  virtual void fiveSecondTick();
  /// Chooses the clock by the published speed: the slow one up to 10 miles per hour.
  virtual void updatePaceTimerClock();
  /// Puts the value first, drops the last one when there are more than the maximum, and returns
  /// the mean; 0 of an empty array.
  virtual double rollingAverage(std::vector<double>& array, int maximumCount, double value);
  /// Moves averageSpeed towards the target by the step at most; `current` is where it stands.
  virtual void stepAverageSpeed(double current, double target, double step);
  /// Counts climbs and descents of at least 6 m; less adds up until it comes to that much.
  virtual void accumulateAltitudeChange(double altitude);
  /// What resetAltitude does.
  virtual void resetAltitudeTotals();

 private:
  std::shared_ptr<VelocityManagerDelegate> delegate_;
  std::optional<CLLocation> currentLocation_;
  std::optional<CLLocation> previousLocation_;
  double calculatedAverageSpeed_ = 0;
  double rollingAverageSpeed_ = 0;
  double averageSpeed_ = 0;
  double averageAltitude_ = 0;
  double verticalSpeed_ = 0;
  bool zeroSpeed_ = false;
  std::vector<double> rollingAverageSpeedArray_;
  std::vector<double> rollingAverageAltitudeArray_;
  std::vector<double> glideRatioDistanceArray_;
  std::vector<double> glideRatioAltitudeArray_;
  double glideRatio_ = 0;
  double slope_ = 0;
  double slopeAngle_ = 0;
  std::optional<double> lastMeasuredAltitude_;
  double altitudeAscent_ = 0;
  double altitudeDescent_ = 0;
  std::shared_ptr<NSTimer> zeroTimer_;
  PaceTimerClock paceTimerClock_ = PaceTimerClock::twoSeconds;

  void tellDelegate();
  void restartZeroTimer();
  void zeroTimerFired();
  void updateAltitudeAndGlide(double altitude, double distance, double seconds);
};

}  // namespace wayfell
