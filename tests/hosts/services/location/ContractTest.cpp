#include "contracts/LocationSourceContract.h"
#include "hosts/loop/uv/EventLoop.h"
#include "hosts/services/location/GpsdSource.h"

namespace wayfell {
namespace {

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
  // The name of gpsd's receiver tells when the source has come as far.
  void report(const std::string& text) {
    if (source_.state().kind == GpsdState::Kind::stopped) return;
    runUntil(loop_, [this] { return !source_.state().device.empty(); });
    const std::string mark = std::to_string(++marks_);
    server_.say(text + listOf(mark));
    runUntil(loop_, [&] {
      // A delegate may have stopped it, which forgets the receiver.
      return source_.state().device == mark || source_.state().device.empty();
    });
    // Fixes of nothing but a position are waited for to be completed.
    bool waited = false;
    loop_.scheduleTimer(2 * kQuick.parts, false, [&] { waited = true; });
    runUntil(loop_, [&] { return waited; });
  }
  static std::string listOf(const std::string& path) {
    return R"({"class":"DEVICES","devices":[{"path":")" + path + "\"}]}\n";
  }

  EventLoop loop_;
  SimulatedRunLoop clock_;
  LoopbackServer server_{loop_, listOf("0")};
  GpsdSource source_{loop_, clock_, loopback(server_.port()), kQuick};
  int second_ = 0;
  int marks_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Gpsd, LocationSources, testing::Values(makeSetting<GpsdSetting>));

}  // namespace
}  // namespace wayfell
