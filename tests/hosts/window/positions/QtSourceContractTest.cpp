// What is asked of every location source, of the one on Qt: with a feed and a compass that say what
// the test has them say.
#include <QGeoCoordinate>
#include <QSensorBackend>
#include <QSensorManager>

#include "contracts/LocationSourceContract.h"
#include "hosts/loop/qt/QtRunLoop.h"
#include "hosts/window/positions/QtPositionSource.h"

namespace wayfell {
namespace {

class SpokenFeed : public PositionFeed {
 public:
  bool isOpen = false;
  void open() override { isOpen = true; }
  void close() override { isOpen = false; }
  std::string name() const override { return "what the test says"; }
  std::string trouble() const override { return ""; }
};

class SpokenCompass : public QSensorBackend {
 public:
  static inline SpokenCompass* present = nullptr;
  static inline bool isRunning = false;

  explicit SpokenCompass(QSensor* sensor) : QSensorBackend(sensor) {
    present = this;
    setReading(&reading_);
  }
  void start() override { isRunning = true; }
  void stop() override { isRunning = false; }
  void say(double azimuth) {
    reading_.setAzimuth(azimuth);
    reading_.setCalibrationLevel(1);
    newReadingAvailable();
  }

 private:
  QCompassReading reading_{this};
};

struct Factory : QSensorBackendFactory {
  QSensorBackend* createBackend(QSensor* sensor) override { return new SpokenCompass(sensor); }
};

class QtSetting : public Setting {
 public:
  QtSetting() {
    static Factory factory;
    if (!QSensorManager::isBackendRegistered("QCompass", "spoken")) {
      QSensorManager::registerBackend("QCompass", "spoken", &factory);
      QSensorManager::setDefaultBackend("QCompass", "spoken");
    }
  }
  LocationSource& source() override { return source_; }
  void reportFixes(const std::vector<double>& latitudes) override {
    for (const double latitude : latitudes) {
      const QGeoPositionInfo info(QGeoCoordinate(latitude, 0), QDateTime::currentDateTimeUtc());
      if (feed_->isOpen) feed_->onPosition(info);
    }
    passOn();
  }
  void reportHeading(double degrees) override {
    if (SpokenCompass::isRunning) SpokenCompass::present->say(degrees);
    passOn();
  }

 private:
  // What the loop is to do comes after all that it was to do before.
  void passOn() {
    loop_.perform([this] { loop_.stop(); });
    loop_.run();
  }

  QtRunLoop loop_;
  SimulatedRunLoop clock_;
  SpokenFeed* feed_ = new SpokenFeed;
  QtPositionSource source_{loop_, clock_, std::unique_ptr<PositionFeed>(feed_)};
};

INSTANTIATE_TEST_SUITE_P(Qt, LocationSources, testing::Values(makeSetting<QtSetting>));

}  // namespace
}  // namespace wayfell
