// The live source against a gpsd whose every word is written here.
#include "hosts/services/location/GpsdSource.h"

#include <gmock/gmock.h>

#include <cmath>
#include <memory>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/services/location/GpsdLink.h"
#include "support/Locations.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Kind = GpsdState::Kind;

// As gpsd 3.22 greets, with a receiver of our own.
constexpr const char* kGreeting =
    R"({"class":"VERSION","release":"3.22","rev":"3.22","proto_major":3,"proto_minor":14}
{"class":"DEVICES","devices":[{"class":"DEVICE","path":"/dev/a","driver":"NMEA0183","activated":"2026-11-23T01:46:52.299Z","flags":1}]}
{"class":"WATCH","enable":true,"json":true,"nmea":false,"raw":0,"scaled":false,"timing":false}
)";

/// A whole fix of a second of 2021-01-02T03:04, which begins 631249440 s after the reference date
/// (GNU date).
std::string fixAt(int second, double latitude, const std::string& device = "/dev/a") {
  return R"({"class":"TPV","device":")" + device + R"(","mode":3,"time":"2021-01-02T03:04:)" +
         std::to_string(second) + R"(.000Z","lat":)" + std::to_string(latitude) +
         R"(,"lon":8.5,"altMSL":408,"eph":19,"epv":23,"speed":1})" + "\r\n";
}

class Gpsd : public testing::Test {
 protected:
  Gpsd() {
    host.source = &source;
    manager->delegate = received;
  }
  ~Gpsd() override { manager.reset(); }

  void runUntilFixes(std::size_t count) {
    runUntil(loop, [&] { return received->fixes.size() >= count; });
  }
  void runUntilState(Kind kind) {
    runUntil(loop, [&] { return source.state().kind == kind; });
  }
  void runUntilConnected() {
    runUntil(loop, [&] { return source.state().device == "/dev/a"; });
  }

  LocationHost host;
  EventLoop loop;
  LoopbackServer server{loop, kGreeting};
  GpsdSource source{loop, host.loop, loopback(server.port()), kQuick};
  std::shared_ptr<Received> received = std::make_shared<Received>();
  std::unique_ptr<CLLocationManager> manager = std::make_unique<CLLocationManager>();
};

TEST_F(Gpsd, AsksForReportsAndTellsHowFarItHasCome) {
  EXPECT_EQ(source.state().kind, Kind::stopped);
  std::vector<Kind> kinds;
  source.onChange = [&] {
    if (kinds.empty() || kinds.back() != source.state().kind) kinds.push_back(source.state().kind);
  };
  manager->startUpdatingLocation();
  runUntilState(Kind::noFix);
  EXPECT_EQ(source.state().device, "/dev/a");
  server.say(R"({"class":"TPV","device":"/dev/a","mode":1})"
             "\n" +
             fixAt(10, 47.5));
  runUntilFixes(1);
  // Errors of 95 % become accuracies of 68 %: 19 times 0.61673, 23 times 0.50739.
  EXPECT_NEAR(received->fixes[0].horizontalAccuracy, 11.71787, 1e-5);
  EXPECT_NEAR(received->fixes[0].verticalAccuracy, 11.66997, 1e-5);
  EXPECT_EQ(received->fixes[0].coordinate, (CLLocationCoordinate2D{47.5, 8.5}));
  EXPECT_EQ(received->fixes[0].altitude, 408);
  EXPECT_EQ(received->fixes[0].timestamp, (NSDate{631249450}));
  server.say(R"({"class":"TPV","device":"/dev/a","mode":1,"time":"2021-01-02T03:04:11.000Z"})"
             "\n");
  runUntilState(Kind::noFix);
  server.say(fixAt(12, 47.6));
  runUntilState(Kind::fix);
  server.say(R"({"class":"DEVICE","path":"/dev/a","activated":0})"
             "\n");
  runUntilState(Kind::noDevice);
  manager->stopUpdatingLocation();
  EXPECT_THAT(kinds, ElementsAre(Kind::connecting, Kind::noFix, Kind::fix, Kind::noFix, Kind::fix,
                                 Kind::noDevice, Kind::stopped));
  EXPECT_EQ(server.asked, "?WATCH={\"enable\":true,\"json\":true};\n");
}

TEST_F(Gpsd, ListensOnlyWhileSomethingIsAskedFor) {
  for (int round = 1; round <= 3; ++round) {
    manager->startUpdatingLocation();
    manager->startUpdatingHeading();
    runUntilConnected();
    manager->stopUpdatingLocation();
    server.say(fixAt(10, 1) + R"({"class":"ATT","heading":10})" + "\n");
    const auto headings = static_cast<std::size_t>(round);
    runUntil(loop, [&] { return received->headings.size() == headings; });
    EXPECT_TRUE(source.deliversHeadings());
    manager->stopUpdatingHeading();
    EXPECT_FALSE(source.deliversHeadings());
    EXPECT_EQ(server.connections, round);
    runUntil(loop, [&] { return !server.isConnected(); });
  }
  EXPECT_TRUE(received->fixes.empty());
}

TEST_F(Gpsd, WaitsLongerEachTimeUntilAReportComes) {
  GpsdIntervals intervals = kQuick;
  intervals.retry.first = 0.05;
  intervals.retry.longest = 0.2;
  GpsdSource patient(loop, host.loop, loopback(server.port()), intervals);
  std::vector<int> waits;  // in units of the first, up from what is left of them
  patient.onChange = [&] {
    if (patient.state().kind != Kind::waiting) return;
    const std::chrono::duration<double> left =
        patient.state().nextAttempt - std::chrono::steady_clock::now();
    waits.push_back(static_cast<int>(std::ceil(left.count() / intervals.retry.first)));
  };
  const auto connected = [&] { return patient.state().device == "/dev/a"; };
  const auto waiting = [&] { return patient.state().kind == Kind::waiting; };
  server.stopListening();
  CLLocationManager user;
  patient.startUpdatingLocation(user);
  runUntil(loop, [&] { return waits.size() >= 4; });
  EXPECT_THAT(waits, ElementsAre(1, 2, 4, 4));
  EXPECT_EQ(patient.state().reason, "Connection refused");
  // A daemon that greets and goes is worth no more; one that reports is.
  server.listen();
  runUntil(loop, connected);
  waits.clear();
  server.stopListening();
  server.hangUp();
  runUntil(loop, waiting);
  EXPECT_EQ(waits.front(), 4);
  server.listen();
  server.greeting += fixAt(10, 47.5);
  runUntil(loop, [&] { return patient.state().kind == Kind::fix; });
  waits.clear();
  server.hangUp();
  runUntil(loop, waiting);
  EXPECT_EQ(waits.front(), 1);
  patient.stopUpdatingLocation(user);
}

TEST_F(Gpsd, ComesBackToADaemonKilledInTheMiddleOfALine) {
  manager->startUpdatingLocation();
  runUntilConnected();
  server.say(fixAt(10, 1) + fixAt(11, 2).substr(0, 60));
  runUntilFixes(1);
  server.hangUp();
  runUntilState(Kind::waiting);
  EXPECT_EQ(source.state().reason, "gpsd has closed the connection");
  EXPECT_EQ(source.state().device, "");
  runUntilConnected();
  server.say(fixAt(12, 3));
  runUntilFixes(2);
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 3));
}

TEST_F(Gpsd, ReadsLinesHoweverTheyArriveAndPassesOverTheRest) {
  manager->startUpdatingLocation();
  runUntilConnected();
  const std::string text =
      fixAt(10, 1) + "{\"class\":\"TPV\",\"mode\":3,\"lat\":\n" + std::string(3, '\0') +
      "\xFF\n\n" + R"({"class":"TPV","mode":2,"devices":[{"class":"DEVICE","path":"x"}]})" + "\n" +
      R"({"class":"DEVICES","devices":[[[)" + "\n" + fixAt(11, 2) + R"({"class":"TPV","x":")" +
      std::string(300000, 'x') + "\"}\n" + fixAt(12, 3) + R"({"class":"SKY","satellites":[)" +
      std::string(20000, '[') + "\n" + fixAt(13, 4);
  std::size_t said = 0;
  loop.scheduleTimer(0.0005, true, [&] {
    const std::size_t piece = said < 400 ? 29 : 65521;
    server.say(text.substr(std::min(said, text.size()), piece));
    said += piece;
  });
  runUntilFixes(4);
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 2, 3, 4));
}

TEST_F(Gpsd, StaysWithADaemonThatHasNothingToReport) {
  int answers = 0;
  server.answer = [&](const std::string& request) -> std::string {
    if (request.find("?VERSION;") == std::string::npos) return "";
    ++answers;
    return "{\"class\":\"VERSION\",\"release\":\"3.22\"}\n";
  };
  manager->startUpdatingLocation();
  manager->startUpdatingHeading();
  runUntilConnected();
  server.say(fixAt(10, 1) + R"({"class":"ATT","heading":10})" + "\n");
  runUntil(loop, [&] { return source.state().kind == Kind::fix && source.state().heading; });
  // The receiver falls silent, and so does the compass.
  runUntilState(Kind::silent);
  EXPECT_FALSE(source.deliversHeadings());
  runUntil(loop, [&] { return answers >= 3; });
  EXPECT_EQ(server.connections, 1);
}

TEST_F(Gpsd, LeavesADaemonThatDoesNotAnswerAndAServiceThatIsNone) {
  manager->startUpdatingLocation();
  runUntilConnected();
  server.greeting = "SSH-2.0-OpenSSH_9.2\r\n";
  runUntil(loop, [&] { return server.connections == 2; });
  EXPECT_THAT(server.asked, HasSubstr("?VERSION;"));
  runUntilState(Kind::waiting);
  EXPECT_EQ(source.state().reason, "gpsd does not answer");
}

TEST_F(Gpsd, FollowsOneOfSeveralReceivers) {
  const std::string lost = R"({"class":"TPV","device":"/dev/b","mode":1})"
                           "\n";
  manager->startUpdatingLocation();
  runUntilConnected();
  server.say(fixAt(10, 1, "/dev/a") + fixAt(10, 51, "/dev/b") + lost + fixAt(11, 2, "/dev/a") +
             fixAt(11, 52, "/dev/b"));
  runUntilFixes(2);
  // The first one loses its fix: the other one is taken, and stays.
  server.say(R"({"class":"TPV","device":"/dev/a","mode":1})"
             "\n" +
             fixAt(12, 53, "/dev/b") + fixAt(13, 4, "/dev/a") + fixAt(13, 54, "/dev/b"));
  runUntilFixes(4);
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 2, 53, 54));
  // The other one falls silent, while the first one goes on.
  int second = 14;
  loop.scheduleTimer(0.05, true, [&] { server.say(fixAt(second++, 5, "/dev/a")); });
  runUntilFixes(5);
  EXPECT_EQ(received->latitudes().back(), 5);
}

// A receiver starts: its first instants come in parts.
TEST_F(Gpsd, GivesOneFixForTheParts) {
  manager->startUpdatingLocation();
  runUntilConnected();
  const std::string start = R"({"class":"TPV","device":"/dev/a","mode":)";
  const std::string time = R"("time":"2021-01-02T03:04:10.000Z",)";
  server.say(start + R"(2,"lat":1,"lon":2})" + "\n" + start + "2," + time +
             R"("lat":1,"lon":2,"speed":1})" + "\n" + start + "3," + time +
             R"("lat":1,"lon":2,"altMSL":408,"eph":20})" + "\n");
  runUntilFixes(1);  // after a wait, as its vertical error does not come
  EXPECT_EQ(received->fixes[0].altitude, 408);
  EXPECT_EQ(received->fixes[0].speed, 1);
  server.say(fixAt(10, 1) + fixAt(11, 2));
  runUntilFixes(2);
  EXPECT_THAT(received->latitudes(), ElementsAre(1, 2));
}

// "localhost" may be ::1 first, where nobody listens.
TEST_F(Gpsd, LooksUpNamesAndTriesAllAddresses) {
  GpsdSource named(loop, host.loop, {"localhost", std::to_string(server.port())}, kQuick);
  CLLocationManager user;
  named.startUpdatingLocation(user);
  runUntil(loop, [&] { return named.state().device == "/dev/a"; });
  named.stopUpdatingLocation(user);
  // A label of a name may have 63 letters; nobody is asked for this one.
  GpsdSource nowhere(loop, host.loop, {std::string(300, 'a'), "2947"}, kQuick);
  nowhere.startUpdatingLocation(user);
  runUntil(loop, [&] { return nowhere.state().kind == Kind::waiting; });
  EXPECT_NE(nowhere.state().reason, "");
  nowhere.stopUpdatingLocation(user);
}

TEST_F(Gpsd, AnswersAProbe) {
  EXPECT_TRUE(gpsdAnswers(loop, loopback(server.port()), 20));
  server.greeting = "220 mail.example.org ESMTP\r\n";
  EXPECT_FALSE(gpsdAnswers(loop, loopback(server.port()), 0.05));
  server.stopListening();
  EXPECT_FALSE(gpsdAnswers(loop, loopback(server.port()), 1e6));  // known at once
}

}  // namespace
}  // namespace wayfell
