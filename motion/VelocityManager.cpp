#include "motion/VelocityManager.h"

#include <cmath>
#include <numeric>

#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

// Seconds.
constexpr double kFastClock = 2.0;
constexpr double kSlowClock = 5.0;
constexpr double kStationaryAfter = 7.0;

// Metres per second.
constexpr double kSlowClockLimit = kTenMilesPerHour;
constexpr double kFastClockOverride = 7.0;
constexpr double kStandingStill = 0.25;

// Metres per second, for each call.
constexpr double kFastClockStep = 15.0;
constexpr double kSlowClockStep = 5.0;
constexpr double kSlowClockStoppingStep = 10.0;
constexpr double kZeroTimerStep = 5.0;

// How far, in metres, and how long, in seconds, a fix must be from the last one to have moved.
constexpr double kMovedDistance = 2.0;
constexpr double kMovedTime = 0.8;

constexpr int kSmoothingCount = 3;
constexpr int kGlideCount = 15;

// Metres of climb or descent below which nothing is counted.
constexpr double kAltitudeDeadBand = 6.0;

// A speed from the fixes' distances, blended with the receiver's own; none when the fix is not to
// be believed. `onItsWay` is said of a fix that has moved or goes on in one direction.
std::optional<double> blendedSpeed(double speed, double receiverSpeed, bool moved, bool onItsWay) {
  if (receiverSpeed > 0 && moved) return (speed + receiverSpeed) * 0.5;
  if (onItsWay) return speed;
  if (receiverSpeed == 0) return speed * 0.5;  // the mean of the speed and the reported 0
  if (receiverSpeed > 0) return receiverSpeed;
  return std::nullopt;
}

}  // namespace

std::shared_ptr<VelocityManager> VelocityManager::init() {
  startTimers();
  return shared_from_this();
}

std::shared_ptr<VelocityManager> VelocityManager::initWithDelegate(
    std::shared_ptr<VelocityManagerDelegate> delegate) {
  setDelegate(std::move(delegate));
  return init();
}

void VelocityManager::startTimers() {
  NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(
      kFastClock, true, [weakSelf = weak_from_this()](const NSTimer&) {
        if (const auto self = weakSelf.lock()) self->twoSecondTick();
      });
  NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(
      kSlowClock, true, [weakSelf = weak_from_this()](const NSTimer&) {
        if (const auto self = weakSelf.lock()) self->fiveSecondTick();
      });
}

// --- Publishing ----------------------------------------------------------------------------

// The two clocks follow different speeds, the fast one the last fix's and the slow one the mean of
// three: a vehicle's speed is shown at once, a walker's does not jump.

void VelocityManager::twoSecondTick() {
  if (paceTimerClock_ == PaceTimerClock::twoSeconds ||
      calculatedAverageSpeed_ > kFastClockOverride) {
    const double target = zeroSpeed_ ? 0 : calculatedAverageSpeed_;
    stepAverageSpeed(averageSpeed(), target, kFastClockStep);
    tellDelegate();
  }
  updatePaceTimerClock();
}

void VelocityManager::fiveSecondTick() {
  if (paceTimerClock_ == PaceTimerClock::fiveSeconds) {
    if (zeroSpeed_) {
      stepAverageSpeed(averageSpeed(), 0, kSlowClockStoppingStep);
    } else {
      stepAverageSpeed(averageSpeed(), rollingAverageSpeed_, kSlowClockStep);
    }
    tellDelegate();
  }
  updatePaceTimerClock();
}

void VelocityManager::updatePaceTimerClock() {
  paceTimerClock_ =
      averageSpeed() <= kSlowClockLimit ? PaceTimerClock::fiveSeconds : PaceTimerClock::twoSeconds;
}

void VelocityManager::stepAverageSpeed(double current, double target, double step) {
  if (target > current + step) {
    setAverageSpeed(averageSpeed() + step);
  } else if (target < current - step) {
    setAverageSpeed(averageSpeed() - step);
  } else {
    setAverageSpeed(target);
  }
}

void VelocityManager::tellDelegate() {
  if (const auto listener = delegate()) listener->velocityManagerDidUpdateSpeed(averageSpeed());
}

void VelocityManager::restartZeroTimer() {
  if (zeroTimer_) zeroTimer_->invalidate();
  zeroTimer_ = NSTimer::scheduledTimerWithTimeIntervalRepeatsBlock(
      kStationaryAfter, false,
      [self = shared_from_this()](const NSTimer&) { self->zeroTimerFired(); });
}

void VelocityManager::zeroTimerFired() {
  zeroSpeed_ = true;
  stepAverageSpeed(averageSpeed(), 0, kZeroTimerStep);
  tellDelegate();
}

// --- Fixes ---------------------------------------------------------------------------------

void VelocityManager::updateSpeedWithLocation(CLLocation location) {
  if (!currentLocation_ || !previousLocation_) {
    // The first fix is taken unchecked, even an invalid one.
    currentLocation_ = location;
    previousLocation_ = location;
    return;
  }
  const CLLocation current = *currentLocation_;
  const CLLocation previous = *previousLocation_;
  const double distance = location.distanceFromLocation(current);
  const double seconds = location.timestamp.timeIntervalSinceDate(current.timestamp);
  if (location.horizontalAccuracy < 0) return;
  const double previousToCurrent = previous.distanceFromLocation(current);
  const double previousToNew = previous.distanceFromLocation(location);
  // The three fixes go on in one direction.
  const bool consistent = distance < previousToNew && previousToCurrent < previousToNew;
  const bool moved = distance >= kMovedDistance && seconds >= kMovedTime;
  if (!moved && location.speed < 0 && !consistent) return;

  const double longDistance = location.distanceFromLocation(previous);
  const double longSeconds = location.timestamp.timeIntervalSinceDate(previous.timestamp);
  const double longSpeed = longDistance / longSeconds;
  const double meanSpeed = (distance / seconds + longSpeed) * 0.5;
  double speed = !moved && consistent ? longSpeed : meanSpeed;
  if (speed < kStandingStill) speed = 0;
  const auto blended = blendedSpeed(speed, location.speed, moved, moved || consistent);
  if (!blended) return;

  calculatedAverageSpeed_ = *blended;
  previousLocation_ = current;
  currentLocation_ = location;
  zeroSpeed_ = false;
  rollingAverageSpeed_ =
      rollingAverage(rollingAverageSpeedArray_, kSmoothingCount, calculatedAverageSpeed_);
  updateAltitudeAndGlide(location.altitude, distance, seconds);
  restartZeroTimer();
  accumulateAltitudeChange(averageAltitude());
}

double VelocityManager::rollingAverage(std::vector<double>& array, int maximumCount, double value) {
  array.insert(array.begin(), value);
  if (std::cmp_greater(array.size(), maximumCount)) array.pop_back();
  if (array.empty()) return 0;
  return std::accumulate(array.begin(), array.end(), 0.0) / static_cast<double>(array.size());
}

// --- Altitude ------------------------------------------------------------------------------

// averageAltitude starts at 0, so the first change is the whole altitude, and the first vertical
// speed is as large.
void VelocityManager::updateAltitudeAndGlide(double altitude, double distance, double seconds) {
  const double average = rollingAverage(rollingAverageAltitudeArray_, kSmoothingCount, altitude);
  const double change = average - averageAltitude();
  setVerticalSpeed(change / seconds);
  setAverageAltitude(average);
  const double meanDistance = rollingAverage(glideRatioDistanceArray_, kGlideCount, distance);
  const double meanChange = rollingAverage(glideRatioAltitudeArray_, kGlideCount, change);
  if (meanChange == 0) {
    setGlideRatio(0);
    return;
  }
  setGlideRatio(meanDistance / meanChange);
  if (meanDistance <= 0) {
    setSlope(0);
    setSlopeAngle(0);
  } else {
    setSlope(1 / glideRatio());
    setSlopeAngle(std::atan(slope()) * 180 / kPi);
  }
}

void VelocityManager::accumulateAltitudeChange(double altitude) {
  if (!lastMeasuredAltitude_) {
    lastMeasuredAltitude_ = altitude;
    return;
  }
  const double up = altitude - *lastMeasuredAltitude_;
  const double down = *lastMeasuredAltitude_ - altitude;
  if (up >= kAltitudeDeadBand) {
    setAltitudeAscent(altitudeAscent() + up);
    lastMeasuredAltitude_ = altitude;
  } else if (down >= kAltitudeDeadBand) {
    setAltitudeDescent(altitudeDescent() + down);
    lastMeasuredAltitude_ = altitude;
  }
}

void VelocityManager::resetAltitude() { resetAltitudeTotals(); }

void VelocityManager::resetAltitudeTotals() {
  setAltitudeAscent(0);
  setAltitudeDescent(0);
}

}  // namespace wayfell
