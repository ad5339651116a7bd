// NMEA sentences over TCP and from a terminal, as a receiver says them.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "hosts/loop/qt/QtRunLoop.h"
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

// What receivers really say, and the last fix of it, worked by hand: 46° 6' N and 8° 12' E, 46.1
// and 8.2, unless the text says otherwise; 7.2 knots of 1852 m an hour are 3.704 m/s; 2024-05-01
// 08:00:01 is 736243201 s after the reference date (GNU date).
struct Said {
  const char* is;
  std::string text;
  std::size_t fixes;
  CLLocation last;
  bool isDated = true;
};

const std::string kPlace = "4606.000,N,00812.000,E";

std::string withoutChecksum(const std::string& text) { return "$" + text + "\r\n"; }

std::string inLowerCase(std::string sentence) {
  for (std::size_t i = sentence.find('*'); i < sentence.size(); ++i) {
    sentence[i] = static_cast<char>(std::tolower(sentence[i]));
  }
  return sentence;
}

const Said kSaid[] = {
    {"a mouse that sends RMC alone",
     sentence("GPRMC,080001,A," + kPlace + ",7.2,84.4,010524,,"),
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201}}},
    {"a chart plotter that sends GLL alone",
     sentence("GPGLL," + kPlace + ",080000,A") + sentence("GPGLL," + kPlace + ",080001,A") +
         sentence("GPGLL," + kPlace + ",080002,A"),
     2,
     {{46.1, 8.2}, 0, 5, -1, -1, -1, {}},
     false},
    {"a fix in the plane: GGA without an altitude, the dilution 2 of 5 m",
     sentence("GNRMC,080001,A," + kPlace + ",7.2,84.4,010524,,,A") +
         sentence("GNGGA,080001," + kPlace + ",1,03,2.0,,M,,M,,"),
     1,
     {{46.1, 8.2}, 0, 10, -1, 3.704, 84.4, {736243201}}},
    {"a dilution of 0, which is none",
     sentence("GPRMC,080001,A," + kPlace + ",7.2,84.4,010524,,,A") +
         sentence("GPGGA,080001," + kPlace + ",1,08,0.0,408.0,M,47.0,M,,"),
     1,
     {{46.1, 8.2}, 408, 5, 5, 3.704, 84.4, {736243201}}},
    {"a receiver that has lost its fix and repeats its last place",
     sentence("GPRMC,080001,V," + kPlace + ",7.2,84.4,010524,,,N") +
         sentence("GPGLL," + kPlace + ",080001,V,N"),
     0,
     {}},
    {"satellites of Russia, and of Europe",
     sentence("GLRMC,080000,A," + kPlace + ",7.2,84.4,010524,,,A") +
         sentence("GARMC,080001,A," + kPlace + ",7.2,84.4,010524,,,A"),
     2,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201}}},
    {"a checksum in small letters",
     inLowerCase(sentence("GPRMC,080001,A," + kPlace + ",7.2,84.5,010524,,,A")),
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.5, {736243201}}},
    {"a receiver of the first version, without checksums",
     withoutChecksum("GPRMC,080001,A," + kPlace + ",7.2,84.4,010524,,"),
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201}}},
    {"who stands: speed and course are empty",
     sentence("GPRMC,080001,A," + kPlace + ",,,010524,,,A"),
     1,
     {{46.1, 8.2}, 0, 5, -1, -1, -1, {736243201}}},
    {"weeks that have run over: 1024 weeks early",
     sentence("GPRMC,080001,A," + kPlace + ",7.2,84.4,150904,,,A"),
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201 - 1024 * 7 * 86400.0}}},
    {"a date by ZDA alone, and a speed by VTG",
     sentence("GPZDA,080001,01,05,2024,00,00") +
         sentence("GPGGA,080001," + kPlace + ",1,08,0.9,408.0,M,47.0,M,,") +
         sentence("GPVTG,84.4,T,,M,7.2,N,13.5,K"),
     1,
     {{46.1, 8.2}, 408, 4.5, 5, 3.75, 84.4, {736243201}}},
    {"bytes of another speed, half a sentence, a wrong checksum, and words between",
     "\xff\x00\x80\x17$GPRMC,0800$GPTXT,01,01,02,u-blox*\r\n\r\n$PMTK010,001*2E\r\n" +
         sentence("GPRMC,080001,A," + kPlace + ",7.2,84.4,010524,,,A") +
         "$GPRMC,080002,A,4706.000,N,00812.000,E,7.2,84.4,010524,,,A*00\r\n",
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201}}},
    {"midnight, told by a GGA first",
     sentence("GPRMC,235959,A," + kPlace + ",7.2,84.4,300424,,,A") +
         sentence("GPGGA,000000," + kPlace + ",1,08,0.9,408.0,M,47.0,M,,") +
         sentence("GPRMC,000000,A," + kPlace + ",7.2,84.4,010524,,,A"),
     2,
     {{46.1, 8.2}, 408, 4.5, 5, 3.704, 84.4, {736243201 - 8 * 3600 - 1}}},
    {"a leap second",
     sentence("GPRMC,235960,A," + kPlace + ",7.2,84.4,311216,,,A"),
     1,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {504921599.5}}},
    {"a clock that is put right, an hour back",
     sentence("GPRMC,090000,A," + kPlace + ",7.2,84.4,010524,,,A") +
         sentence("GPRMC,080000,A," + kPlace + ",7.2,84.4,010524,,,A") +
         sentence("GPRMC,080001,A," + kPlace + ",7.2,84.4,010524,,,A"),
     3,
     {{46.1, 8.2}, 0, 5, -1, 3.704, 84.4, {736243201}}},
};

TEST(SaidNmea, ComesToTheFixThatWasWorkedByHand) {
  // Comes last, so that it is known what did not come.
  const std::string end = sentence("GPRMC,235958,A,1000.000,N,01000.000,E,0,0,311249,,,A");
  for (const Said& said : kSaid) {
    SCOPED_TRACE(said.is);
    QtRunLoop loop;
    LoopbackServer server(loop);
    server.greeting = said.text + end;
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
    EXPECT_EQ(fixes.size(), said.fixes);
    if (fixes.empty()) continue;
    const CLLocation& last = fixes.back();
    EXPECT_NEAR(last.coordinate.latitude, said.last.coordinate.latitude, 1e-9);
    EXPECT_NEAR(last.coordinate.longitude, said.last.coordinate.longitude, 1e-9);
    EXPECT_NEAR(last.altitude, said.last.altitude, 1e-6);
    EXPECT_NEAR(last.horizontalAccuracy, said.last.horizontalAccuracy, 1e-6);
    EXPECT_NEAR(last.verticalAccuracy, said.last.verticalAccuracy, 1e-6);
    EXPECT_NEAR(last.speed, said.last.speed, 1e-5);
    EXPECT_NEAR(last.course, said.last.course, 1e-5);
    if (said.isDated) {
      EXPECT_EQ(last.timestamp, said.last.timestamp);
    }
  }
}

}  // namespace
}  // namespace wayfell
