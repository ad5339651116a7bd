// What every location source must do. To be instantiated with settings of each.
#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <thread>
#include <vector>

#include "support/Locations.h"

namespace wayfell {

/// A source, and the world that it hears of.
class Setting {
 public:
  virtual ~Setting() = default;
  virtual LocationSource& source() = 0;
  /// A receiver reports fixes at these latitudes, or a compass this heading, and the source has had
  /// the time to pass on what it will.
  virtual void reportFixes(const std::vector<double>& latitudes) = 0;
  virtual void reportHeading(double degrees) = 0;
};

class LocationSources : public testing::TestWithParam<std::unique_ptr<Setting> (*)()> {
 protected:
  LocationSources() {
    host.source = &setting->source();
    manager->delegate = received;
  }
  ~LocationSources() override { manager.reset(); }

  std::unique_ptr<Setting> setting = GetParam()();
  LocationHost host;
  std::shared_ptr<Received> received = std::make_shared<Received>();
  std::unique_ptr<CLLocationManager> manager = std::make_unique<CLLocationManager>();
};

TEST_P(LocationSources, DeliverOnlyWhatWasStarted) {
  setting->reportFixes({1});
  setting->reportHeading(10);
  manager->startUpdatingHeading();
  setting->reportFixes({2});
  setting->reportHeading(20);
  manager->startUpdatingLocation();
  manager->stopUpdatingHeading();
  setting->reportFixes({3});
  setting->reportHeading(30);
  manager->stopUpdatingLocation();
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), testing::ElementsAre(3));
  EXPECT_THAT(received->headings,
              testing::ElementsAre(testing::Field(&CLHeading::magneticHeading, 20)));
}

TEST_P(LocationSources, DeliverTheOldestFirstAndOnTheLoopsThread) {
  manager->startUpdatingLocation();
  setting->reportFixes({1, 2, 3});
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), testing::ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(received->threads, testing::Each(std::this_thread::get_id()));
}

TEST_P(LocationSources, MayBeStoppedAndStartedAgainAtAnyTime) {
  received->onFixes = [this] {
    manager->stopUpdatingLocation();
    manager->stopUpdatingHeading();
  };
  for (int round = 0; round < 3; ++round) {
    manager->startUpdatingLocation();
    manager->startUpdatingHeading();
    setting->reportFixes({1});
    setting->reportFixes({2});
    setting->reportHeading(20);
  }
  EXPECT_THAT(received->latitudes(), testing::ElementsAre(1, 1, 1));
  EXPECT_THAT(received->headings, testing::IsEmpty());
  received->onFixes = [this] {
    manager->stopUpdatingLocation();
    manager->startUpdatingLocation();
  };
  manager->startUpdatingLocation();
  setting->reportFixes({3});
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), testing::ElementsAre(1, 1, 1, 3, 4));
}

TEST_P(LocationSources, OutliveTheirManagers) {
  manager->startUpdatingLocation();
  manager->startUpdatingHeading();
  setting->reportFixes({1});
  manager = std::make_unique<CLLocationManager>();
  setting->reportFixes({2});
  setting->reportHeading(20);
  manager->delegate = received;
  manager->startUpdatingLocation();
  setting->reportFixes({3});
  // What a manager that is gone asked for is not what another has asked for.
  CLLocationManager().stopUpdatingLocation();
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), testing::ElementsAre(1, 3, 4));
  EXPECT_THAT(received->headings, testing::IsEmpty());
}

template <class One>
std::unique_ptr<Setting> makeSetting() {
  return std::make_unique<One>();
}

}  // namespace wayfell
