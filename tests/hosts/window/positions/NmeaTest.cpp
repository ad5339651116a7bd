// NMEA sentences over TCP and from a terminal, as a receiver says them.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

#include "hosts/loop/qt/QtRunLoop.h"
#include "hosts/text/IsoTime.h"
#include "hosts/window/positions/NmeaFeed.h"
#include "hosts/window/positions/QtPositionSource.h"
#include "support/Locations.h"

namespace wayfell {
namespace {

using testing::HasSubstr;

constexpr RetryDelays kQuickly = {.first = 0.02, .longest = 0.08};

// With the checksum of the standard: all characters between "$" and "*", each or.
std::string sentence(const std::string& text) {
  unsigned sum = 0;
  for (const char character : text) sum ^= static_cast<unsigned char>(character);
  std::array<char, 8> end{};
  std::snprintf(end.data(), end.size(), "*%02X\r\n", sum);
  return "$" + text + end.data();
}

// 48° 7.038' N = 48.1173, 11° 31.0' E = 11.516667; 22.4 knots of 1852 m an hour are 11.523556 m/s;
// the dilution 0.9 of 5 m is 4.5 m. 2021-03-23 12:35:19 is 1616502919 s after 1970, 638195719 s
// after the reference date.
const std::string kFix = sentence("GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,") +
                         sentence("GPRMC,123519,A,4807.038,N,01131.000,E,22.4,84.4,230321,3.1,W");
// The next second.
const std::string kNextFix =
    sentence("GPGGA,123520,4807.044,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,") +
    sentence("GPRMC,123520,A,4807.044,N,01131.000,E,22.4,84.4,230321,3.1,W");
const std::string kNoFix =
    sentence("GPGGA,123521,,,,,0,00,99.9,,M,,M,,") + sentence("GPRMC,123521,V,,,,,,,230321,,");

class Nmea : public testing::Test {
 protected:
  void follow(std::unique_ptr<PositionFeed> feed) {
    source = std::make_unique<QtPositionSource>(loop, host.loop, std::move(feed));
    host.source = source.get();
    manager = std::make_unique<CLLocationManager>();
    manager->delegate = received;
    manager->startUpdatingLocation();
  }
  void followServer() { follow(nmeaFromServer(loop, "127.0.0.1", port(), kQuickly)); }
  std::uint16_t port() const { return static_cast<std::uint16_t>(server.port()); }
  void waitForFixes(std::size_t count) {
    runUntil(loop, [&] { return received->fixes.size() >= count; });
  }
  ~Nmea() override { manager.reset(); }

  QtRunLoop loop;
  LocationHost host;
  LoopbackServer server{loop};
  std::shared_ptr<Received> received = std::make_shared<Received>();
  std::unique_ptr<QtPositionSource> source;
  std::unique_ptr<CLLocationManager> manager;
};

TEST_F(Nmea, IsReadOverTcp) {
  server.greeting = kFix + kNextFix;
  followServer();
  waitForFixes(2);
  const CLLocation& fix = received->fixes.front();
  EXPECT_NEAR(fix.coordinate.latitude, 48.1173, 1e-9);
  EXPECT_NEAR(fix.coordinate.longitude, 11.5166666667, 1e-9);
  EXPECT_NEAR(fix.altitude, 545.4, 1e-6);
  EXPECT_NEAR(fix.horizontalAccuracy, 4.5, 1e-6);
  EXPECT_EQ(fix.verticalAccuracy, 5);
  EXPECT_NEAR(fix.speed, 11.523556, 1e-5);
  EXPECT_NEAR(fix.course, 84.4, 1e-5);
  EXPECT_EQ(fix.timestamp, NSDate{638195719});
  EXPECT_EQ(source->feed().trouble(), "");
}

TEST_F(Nmea, WaitsForAServerAndComesBackToIt) {
  server.stopListening();
  followServer();
  runUntil(loop, [&] { return !source->feed().trouble().empty(); });
  runUntil(loop, [&] { return source->feed().trouble().find("no contact") == 0; });
  EXPECT_THAT(source->feed().trouble(), HasSubstr("refused"));
  server.greeting = kFix;
  server.listen();
  waitForFixes(1);
  server.greeting = kNextFix;
  server.hangUp();
  waitForFixes(2);
}

TEST_F(Nmea, TellsAReceiverWithoutAFixFromASilentOne) {
  followServer();
  runUntil(loop, [&] { return server.isConnected(); });
  EXPECT_EQ(source->feed().trouble(), "receiver silent");
  server.say(kNoFix);
  runUntil(loop, [&] { return source->feed().trouble() == "no fix"; });
  EXPECT_TRUE(received->fixes.empty());
  manager->stopUpdatingLocation();
  EXPECT_EQ(source->feed().trouble(), "");
  runUntil(loop, [&] { return !server.isConnected(); });
}

TEST_F(Nmea, IsReadFromATerminalWhichIsGivenBackAsItWas) {
  int receiver = -1;
  int port = -1;
  std::array<char, 256> path{};
  ASSERT_EQ(openpty(&receiver, &port, path.data(), nullptr, nullptr), 0);
  termios before = {};
  tcgetattr(port, &before);
  follow(nmeaFromDevice(loop, path.data(), kQuickly));
  ASSERT_EQ(write(receiver, kFix.data(), kFix.size()), static_cast<ssize_t>(kFix.size()));
  waitForFixes(1);
  // Nothing came back to the receiver, as an echo would.
  fcntl(receiver, F_SETFL, O_NONBLOCK);
  char echo = 0;
  EXPECT_EQ(read(receiver, &echo, 1), -1);
  manager->stopUpdatingLocation();
  termios after = {};
  tcgetattr(port, &after);
  EXPECT_EQ(after.c_lflag, before.c_lflag);
  EXPECT_EQ(after.c_iflag, before.c_iflag);
  close(port);
  close(receiver);
}

TEST_F(Nmea, SaysWhyADeviceCannotBeRead) {
  follow(nmeaFromDevice(loop, "/nonexistent/gps", kQuickly));
  runUntil(loop, [&] { return !source->feed().trouble().empty(); });
  runUntil(loop, [&] { return source->feed().trouble() != "receiver silent"; });
  EXPECT_EQ(source->feed().trouble(), "no contact: No such file or directory");
}

// What receivers really say, and the last fix of it, worked by hand: a line of nmea.jsonl for each.
// What begins with no "$" gets one, and its checksum. The place is 46° 6' N and 8° 12' E; 7.2 knots
// of 1852 m an hour are 3.704 m/s.
std::string bytesOf(const nlohmann::json& says) {
  std::string bytes;
  for (const std::string text : says) {
    bytes += text.empty() || text.find('$') != std::string::npos ? text + "\r\n" : sentence(text);
  }
  return bytes;
}

void expectLast(const CLLocation& last, const nlohmann::json& said) {
  EXPECT_NEAR(last.coordinate.latitude, 46.1, 1e-9);
  EXPECT_NEAR(last.coordinate.longitude, 8.2, 1e-9);
  EXPECT_NEAR(last.altitude, said.value("altitude", 0.0), 1e-6);
  EXPECT_NEAR(last.horizontalAccuracy, said.value("accuracy", 5.0), 1e-6);
  EXPECT_EQ(last.verticalAccuracy, said.value("vertical", -1.0));
  EXPECT_NEAR(last.speed, said.value("speed", -1.0), 1e-5);
  EXPECT_NEAR(last.course, said.value("course", -1.0), 1e-5);
  const std::string time = isoTimeOf(last.timestamp);
  EXPECT_EQ(time, said.value("time", time));
}

TEST(SaidNmea, ComesToTheFixThatWasWorkedByHand) {
  // Comes last, so that it is known what did not come.
  const std::string end = sentence("GPRMC,235958,A,1000.000,N,01000.000,E,0,0,311249,,,A");
  std::ifstream cases(WAYFELL_SOURCES "/tests/hosts/window/positions/nmea.jsonl");
  ASSERT_TRUE(cases);
  for (std::string line; std::getline(cases, line);) {
    const auto said = nlohmann::json::parse(line);
    SCOPED_TRACE(said["is"].get<std::string>());
    QtRunLoop loop;
    LoopbackServer server(loop);
    server.greeting = bytesOf(said["says"]) + end;
    LocationHost host;
    QtPositionSource source(
        loop, host.loop,
        nmeaFromServer(loop, "127.0.0.1", static_cast<std::uint16_t>(server.port()), kQuickly));
    host.source = &source;
    const auto received = std::make_shared<Received>();
    CLLocationManager manager;
    manager.delegate = received;
    manager.startUpdatingLocation();
    auto& fixes = received->fixes;
    runUntil(loop, [&] { return !fixes.empty() && fixes.back().coordinate.latitude == 10; });
    fixes.pop_back();
    EXPECT_EQ(fixes.size(), said["fixes"]);
    if (!fixes.empty()) expectLast(fixes.back(), said);
  }
}

}  // namespace
}  // namespace wayfell
