#include "hosts/window/positions/QtPositionSource.h"

#include <utility>

#include "hosts/window/positions/PositionMapping.h"

namespace wayfell {

QtPositionSource::QtPositionSource(IoRunLoop& loop, const Clock& clock,
                                   std::unique_ptr<PositionFeed> feed)
    : loop_(loop), clock_(clock), feed_(std::move(feed)) {
  feed_->onPosition = [this](const QGeoPositionInfo& info) {
    perform([this, info] { takePosition(info); });
  };
  QObject::connect(compass_.get(), &QSensor::readingChanged, compass_.get(),
                   [this] { perform([this] { takeReading(); }); });
}

QtPositionSource::~QtPositionSource() { feed_->close(); }

// Qt calls us; what that leads to is the loop's, which knows what to do with exceptions.
void QtPositionSource::perform(std::function<void()> action) {
  loop_.perform([alive = std::weak_ptr(alive_), called = std::move(action)] {
    if (!alive.expired()) called();
  });
}

bool QtPositionSource::headingAvailable() const {
  return compass_->isConnectedToBackend() || compass_->connectToBackend();
}

bool QtPositionSource::deliversHeadings() const {
  return lastHeading_ && std::chrono::steady_clock::now() - *lastHeading_ < kLongestSilence;
}

void QtPositionSource::startUpdatingLocation(CLLocationManager& manager) {
  if (std::exchange(locationUser_, &manager) == nullptr) feed_->open();
}

void QtPositionSource::stopUpdatingLocation(CLLocationManager& manager) {
  if (locationUser_ != &manager) return;
  locationUser_ = nullptr;
  feed_->close();
}

void QtPositionSource::startUpdatingHeading(CLLocationManager& manager) {
  headingUser_ = &manager;
  if (headingAvailable()) compass_->start();
}

void QtPositionSource::stopUpdatingHeading(CLLocationManager& manager) {
  if (headingUser_ != &manager) return;
  headingUser_ = nullptr;
  lastHeading_.reset();
  compass_->stop();
}

void QtPositionSource::takePosition(const QGeoPositionInfo& info) {
  if (!locationUser_) return;
  if (info.hasAttribute(QGeoPositionInfo::MagneticVariation)) {
    variation_ = info.attribute(QGeoPositionInfo::MagneticVariation);
  }
  if (const auto location = locationOf(info, clock_.now())) {
    locationUser_->deliverLocations({altitude_.completed(*location)});
  }
}

void QtPositionSource::takeReading() {
  const QCompassReading* const reading = compass_->reading();
  if (!headingUser_ || !reading) return;
  // The desktop's sensor service tells no level, and Qt leaves it at 0.
  std::optional<double> level;
  if (compass_->identifier() != "iio-sensor-proxy.compass") level = reading->calibrationLevel();
  const CLHeading heading = headingOf(reading->azimuth(), level, variation_);
  if (heading.headingAccuracy >= 0) lastHeading_ = std::chrono::steady_clock::now();
  headingUser_->deliverHeading(heading);
}

}  // namespace wayfell
