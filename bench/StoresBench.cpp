// What the settings on disk cost. Writes wait for the disk of the folder for temporary files, so
// set TMPDIR to one that is like the user's.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {
namespace {

std::filesystem::path newFolder() {
  std::string name = std::filesystem::temp_directory_path() / "wayfell-bench-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) std::abort();
  return name;
}

void ignore(const std::string& /*sentence*/) {}

// A suite as the containing app leaves it, and a widget that has it open.
struct Suite {
  Suite() {
    app.setAll({{"useMils", false},
                {"rotateMap", true},
                {"units", 1},
                {"compassHeading", 0},
                {"mapCompassType", 0},
                {"speed", 2},
                {"coordinateUnits", 4},
                {"waypointLatitude", 46.98},
                {"waypointLongitude", 7.94},
                {"hasWaypoint", true},
                {"viewHidden", false},
                {"widgetAddressString", "Bundesplatz 3, 3005 Bern"}});
  }
  ~Suite() { std::filesystem::remove_all(folder); }
  Suite(const Suite&) = delete;
  Suite& operator=(const Suite&) = delete;

  void writeTrack() {
    seconds += 0.5;
    app.setAll({{"time", seconds}, {"distance", 1.4 * seconds}});
  }

  const std::filesystem::path folder = newFolder();
  double seconds = 0;
  std::uint64_t turn = 0;
  SqliteStore app{folder / "suite.db", SqliteStore::Access::readWrite, turnOfEachRead(), ignore};
  SqliteStore widget{folder / "suite.db", SqliteStore::Access::readWrite, [this] { return turn; },
                     ignore};
};

void BM_FindAgainInATurn(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) benchmark::DoNotOptimize(suite.widget.find("units"));
}
BENCHMARK(BM_FindAgainInATurn);

// Looks whether anyone has written.
void BM_FindFirstInATurn(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) {
    ++suite.turn;
    benchmark::DoNotOptimize(suite.widget.find("units"));
  }
}
BENCHMARK(BM_FindFirstInATurn);

// Somebody has: all fourteen keys are read.
void BM_FindAfterAChange(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) {
    state.PauseTiming();
    suite.writeTrack();
    ++suite.turn;
    state.ResumeTiming();
    benchmark::DoNotOptimize(suite.widget.find("time"));
  }
}
BENCHMARK(BM_FindAfterAChange)->Iterations(500);

void BM_SetWhatIsThere(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) suite.widget.set("units", 1);
}
BENCHMARK(BM_SetWhatIsThere);

// Until it is on the disk.
void BM_SetTwo(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) suite.writeTrack();
}
BENCHMARK(BM_SetTwo)->UseRealTime();

void BM_Open(benchmark::State& state) {
  Suite suite;
  for (auto _ : state) {
    SqliteStore another(suite.folder / "suite.db", SqliteStore::Access::readWrite, turnOfEachRead(),
                        ignore);
    benchmark::DoNotOptimize(another.find("units"));
  }
}
BENCHMARK(BM_Open);

}  // namespace
}  // namespace wayfell
