// The live source on a real gpsd, which reads a receiver's sentences over loopback.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <memory>

#include "hosts/loop/uv/EventLoop.h"
#include "support/Loopback.h"

namespace wayfell {
namespace {

using testing::DoubleNear;

/// A sentence with its frame: the checksum is the exclusive or of all between $ and *.
std::string sentence(const std::string& text) {
  unsigned sum = 0;
  for (const char each : text) sum ^= static_cast<unsigned char>(each);
  std::array<char, 8> end{};
  std::snprintf(end.data(), end.size(), "*%02X\r\n", sum);
  return '$' + text + end.data();
}

/// What a receiver says in a second of 2024-03-15T12:03: it is at 8 degrees 32.5 minutes east and,
/// with each second, a hundredth of a minute further north of 47 degrees 22 minutes; 408 m above
/// the sea, at 1.944 knots northward and looking east, where the variation is 2 degrees east.
std::string second(int number) {
  std::array<char, 64> place{};
  std::snprintf(place.data(), place.size(), "1203%02d.00,%%s4722.%02d00,N,00832.5000,E", number,
                number);
  const std::string pattern = place.data();
  const auto at = [&pattern](const std::string& status) {
    std::string text = pattern;
    return text.replace(text.find("%s"), 2, status);
  };
  return sentence("GPRMC," + at("A,") + ",1.944,0.00,150324,2.0,E,A") +
         sentence("GPVTG,0.00,T,,M,1.944,N,3.600,K,A") +
         sentence("GPGGA," + at("") + ",1,08,1.00,408.0,M,47.0,M,,") + sentence("HCHDT,90.0,T") +
         sentence("GPGSA,A,3,01,02,03,04,05,06,07,08,,,,,1.80,1.00,1.50");
}

double latitude(int number) { return 47 + (22 + number / 100.0) / 60; }

/// A gpsd of our own, which ends with the test.
class GpsdProcess {
 public:
  GpsdProcess(int port, int receiver) {
    const std::string receivers = "tcp://127.0.0.1:" + std::to_string(receiver);
    process_ = fork();
    if (process_ != 0) return;
    std::freopen("/dev/null", "w", stderr);
    for (const char* program : {"/usr/bin/gpsd", "/usr/sbin/gpsd"}) {
      execl(program, "gpsd", "-N", "-n", "-S", std::to_string(port).c_str(), receivers.c_str(),
            nullptr);
    }
    _exit(127);
  }
  ~GpsdProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  GpsdProcess(const GpsdProcess&) = delete;
  GpsdProcess& operator=(const GpsdProcess&) = delete;

 private:
  pid_t process_ = -1;
};

/// One that nobody listens on just now.
int freePort() {
  EventLoop loop;
  return LoopbackServer(loop).port();
}

TEST(RealGpsd, GivesAFixASecondAndHeadings) {
  LocationHost host;
  EventLoop loop;
  LoopbackServer receiver(loop);
  const int port = freePort();
  GpsdSource source(loop, host.loop, loopback(port), {.retry = {.first = 0.05, .longest = 0.1}});
  host.source = &source;
  const auto received = std::make_shared<Received>();
  CLLocationManager manager;
  manager.delegate = received;
  manager.startUpdatingLocation();
  manager.startUpdatingHeading();
  runUntil(loop, [&source] { return source.state().kind == GpsdState::Kind::waiting; });
  const GpsdProcess gpsd(port, receiver.port());
  runUntil(loop, [&] { return receiver.isConnected() && !source.state().device.empty(); });

  int now = 10;
  const auto feeder = loop.scheduleTimer(0.1, true, [&] { receiver.say(second(now++)); });
  runUntil(loop, [&] { return received->fixes.size() >= 5 && received->headings.size() >= 3; });
  loop.cancelTimer(feeder);
  EXPECT_EQ(source.state().device, "tcp://127.0.0.1:" + std::to_string(receiver.port()));
  EXPECT_TRUE(source.deliversHeadings());

  // In order, each where the receiver was. 12:03 is 732196980 s after the
  // reference date (GNU date).
  double last = 0;
  for (const CLLocation& fix : received->fixes) {
    const double time = fix.timestamp.timeIntervalSinceReferenceDate;
    EXPECT_GT(time, last);
    last = time;
    const int number = static_cast<int>(time - 732196980);
    EXPECT_NEAR(fix.coordinate.latitude, latitude(number), 1e-8);
    EXPECT_NEAR(fix.coordinate.longitude, 8 + 32.5 / 60, 1e-8);
    EXPECT_EQ(fix.altitude, 408);
    EXPECT_NEAR(fix.speed, 1.944 * 1852 / 3600, 0.001);
    EXPECT_EQ(fix.course, 0);
    // gpsd's model, 19 m times HDOP and 23 m times VDOP for 95 %, times 0.61673 and 0.50739.
    EXPECT_THAT(fix.horizontalAccuracy, DoubleNear(11.718, 0.001));
    EXPECT_THAT(fix.verticalAccuracy, DoubleNear(17.505, 0.001));
  }
  for (const CLHeading& heading : received->headings) {
    EXPECT_EQ(heading.trueHeading, 90);
    EXPECT_EQ(heading.magneticHeading, 88);
  }
}

}  // namespace
}  // namespace wayfell
