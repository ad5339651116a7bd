// What the tests of location sources stand on: a host, and a delegate that keeps what it is told.
#pragma once

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "hosts/services/location/GpsdSource.h"
#include "platform/CLLocationManager.h"
#include "platform/SimulatedHost.h"
#include "support/LoopbackServer.h"

namespace wayfell {

/// A host for location managers; all but the source is simulated.
struct LocationHost : SimulatedHost {
  LocationSource* source = nullptr;
  LocationSource& locationSource() override { return *source; }
};

struct Received : CLLocationManagerDelegate {
  std::vector<CLLocation> fixes;
  std::vector<CLHeading> headings;
  std::vector<std::thread::id> threads;
  std::function<void()> onFixes;

  void locationManagerDidUpdateLocations(CLLocationManager& /*manager*/,
                                         const std::vector<CLLocation>& locations) override {
    fixes.insert(fixes.end(), locations.begin(), locations.end());
    threads.push_back(std::this_thread::get_id());
    if (onFixes) onFixes();
  }
  void locationManagerDidUpdateHeading(CLLocationManager& /*manager*/,
                                       const CLHeading& heading) override {
    headings.push_back(heading);
    threads.push_back(std::this_thread::get_id());
  }
  std::vector<double> latitudes() const {
    std::vector<double> all;
    for (const CLLocation& fix : fixes) all.push_back(fix.coordinate.latitude);
    return all;
  }
};

inline GpsdAddress loopback(int port) { return {"127.0.0.1", std::to_string(port)}; }

/// Enough to go round quickly, long enough for a busy machine.
inline constexpr GpsdIntervals kQuick = {
    .retry = {.first = 0.02, .longest = 0.08}, .tick = 0.2, .parts = 0.05};

}  // namespace wayfell
