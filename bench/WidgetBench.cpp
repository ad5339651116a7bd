// What the widget costs: time and allocations for each fix, heading, tick and appearance, and
// for the position text in each format.
//
// Build the target wayfell_bench and run it. Compare figures within one run: as a ratio to
// BM_Fprintf, one number formatted by the C library.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

#include "Allocations.h"
#include "coordinates/ConvertCoordinates.h"
#include "hosts/panel/WidgetInterface.h"
#include "platform/SimulatedHost.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

// Counts what happens between its construction and report().
class AllocationCount {
 public:
  void report(benchmark::State& state) const {
    state.counters["allocations"] = benchmark::Counter(
        static_cast<double>(allocationsSoFar() - before_), benchmark::Counter::kAvgIterations);
  }

 private:
  std::size_t before_ = allocationsSoFar();
};

struct Widget {
  Widget() {
    host.suite.set("units", 1);
    host.suite.set("hasWaypoint", true);
    host.suite.set("waypointLatitude", 47.0);
    host.suite.set("waypointLongitude", 8.0);
    host.suite.set("distance", 1234.5);
    host.suite.set("time", 600.0);
    controller->viewDidLoad();
    controller->viewWillAppear(false);
  }

  CLLocation nextFix() {
    CLLocation fix;
    fix.coordinate = {46.98 + 1e-5 * steps, 7.94};
    fix.altitude = 900 + steps % 7;
    fix.horizontalAccuracy = 5;
    fix.verticalAccuracy = 8;
    fix.speed = 1.1;
    fix.timestamp = NSDate{static_cast<double>(steps++)};
    return fix;
  }

  SimulatedHost host;
  std::shared_ptr<TodayViewController> controller = std::make_shared<TodayViewController>();
  WidgetInterface interface { controller };
  int steps = 0;
};

void BM_Fprintf(benchmark::State& state) {
  char buffer[32];
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::snprintf(buffer, sizeof buffer, "%0.5f", 46.98123));
  }
}
BENCHMARK(BM_Fprintf);

void BM_Fix(benchmark::State& state) {
  Widget w;
  w.host.local.set("coordinateUnits", static_cast<int>(state.range(0)));
  const AllocationCount count;
  for (auto _ : state) w.host.location.deliver({w.nextFix()});
  count.report(state);
}
BENCHMARK(BM_Fix)->DenseRange(0, 4);

void BM_Heading(benchmark::State& state) {
  Widget w;
  w.host.location.deliver({w.nextFix()});
  double degrees = 0;
  const AllocationCount count;
  for (auto _ : state) {
    degrees = degrees < 359 ? degrees + 1 : 0;
    w.host.location.deliver(CLHeading{degrees, degrees, 5});
  }
  count.report(state);
}
BENCHMARK(BM_Heading);

void BM_Tick(benchmark::State& state) {
  Widget w;
  w.host.location.deliver({w.nextFix()});
  const AllocationCount count;
  for (auto _ : state) w.controller->paceTimer3(nullptr);
  count.report(state);
}
BENCHMARK(BM_Tick);

// From nothing to the first panel: views, controller, load and appearance.
void BM_Appearance(benchmark::State& state) {
  const AllocationCount count;
  for (auto _ : state) Widget w;
  count.report(state);
}
BENCHMARK(BM_Appearance);

void BM_PositionText(benchmark::State& state) {
  SimulatedHost host;
  const AllocationCount count;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ConvertCoordinates::convertLatAndLongWithCoordinateUnits(
        46.98123, 7.94456, static_cast<int>(state.range(0))));
  }
  count.report(state);
}
BENCHMARK(BM_PositionText)->DenseRange(0, 4);

}  // namespace
}  // namespace wayfell

BENCHMARK_MAIN();
