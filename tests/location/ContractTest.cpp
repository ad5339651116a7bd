// What every location source must do, the simulated one and the live one alike.
#include <gmock/gmock.h>

#include <memory>

#include "Loopback.h"

namespace wayfell {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

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

class SimulatedSetting : public Setting {
 public:
  LocationSource& source() override { return source_; }
  void reportFixes(const std::vector<double>& latitudes) override {
    std::vector<CLLocation> fixes;
    for (const double latitude : latitudes) fixes.push_back({{latitude, 0}, 0, 5, 5, -1, -1, {}});
    source_.deliver(fixes);
  }
  void reportHeading(double degrees) override { source_.deliver(CLHeading{degrees, degrees, 5}); }

 private:
  SimulatedLocationSource source_;
};

class GpsdSetting : public Setting {
 public:
  LocationSource& source() override { return source_; }
  void reportFixes(const std::vector<double>& latitudes) override {
    std::string reports;
    for (const double latitude : latitudes) {
      reports += R"({"class":"TPV","mode":2,"time":"2021-01-02T03:04:)" +
                 std::to_string(10 + second_++) + R"(.000Z","lat":)" + std::to_string(latitude) +
                 ",\"lon\":0}\n";
    }
    report(reports);
  }
  void reportHeading(double degrees) override {
    report(R"({"class":"ATT","heading":)" + std::to_string(degrees) + "}\n");
  }

 private:
  // gpsd's version tells when the source has come as far.
  void report(const std::string& text) {
    if (source_.state().kind == GpsdState::Kind::stopped) return;
    runUntil(loop_, [this] { return !source_.state().version.empty(); });
    const std::string mark = std::to_string(++marks_);
    server_.say(text + R"({"class":"VERSION","release":")" + mark + "\"}\n");
    runUntil(loop_, [&] {
      // A delegate may have stopped it, which forgets the version.
      return source_.state().version == mark || source_.state().version.empty();
    });
    // Fixes of nothing but a position are waited for to be completed.
    bool waited = false;
    loop_.scheduleTimer(2 * kQuick.parts, false, [&] { waited = true; });
    runUntil(loop_, [&] { return waited; });
  }
  EventLoop loop_;
  SimulatedRunLoop clock_;
  LoopbackServer server_{loop_, "{\"class\":\"VERSION\",\"release\":\"0\"}\n"};
  GpsdSource source_{loop_, clock_, loopback(server_.port()), kQuick};
  int second_ = 0;
  int marks_ = 0;
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
  EXPECT_THAT(received->latitudes(), ElementsAre(3));
  EXPECT_THAT(received->headings, ElementsAre(CLHeading{20, 20, 5}));
}

TEST_P(LocationSources, DeliverTheOldestFirstAndOnTheLoopsThread) {
  manager->startUpdatingLocation();
  setting->reportFixes({1, 2, 3});
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(received->threads, Each(std::this_thread::get_id()));
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
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 1, 1));
  EXPECT_THAT(received->headings, IsEmpty());
  received->onFixes = [this] {
    manager->stopUpdatingLocation();
    manager->startUpdatingLocation();
  };
  manager->startUpdatingLocation();
  setting->reportFixes({3});
  setting->reportFixes({4});
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 1, 1, 3, 4));
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
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 3, 4));
  EXPECT_THAT(received->headings, IsEmpty());
}

TEST_P(LocationSources, AreAuthorizedOrNotWithoutBeingAsked) {
  EXPECT_EQ(manager->authorizationStatus(), CLAuthorizationStatus::authorizedWhenInUse);
  manager->requestWhenInUseAuthorization();
  EXPECT_EQ(manager->authorizationStatus(), CLAuthorizationStatus::authorizedWhenInUse);
  EXPECT_TRUE(CLLocationManager::headingAvailable());
}

template <class One>
std::unique_ptr<Setting> make() {
  return std::make_unique<One>();
}

INSTANTIATE_TEST_SUITE_P(All, LocationSources,
                         testing::Values(make<SimulatedSetting>, make<GpsdSetting>),
                         [](const auto& each) { return each.index == 0 ? "Simulated" : "Gpsd"; });

}  // namespace
}  // namespace wayfell
