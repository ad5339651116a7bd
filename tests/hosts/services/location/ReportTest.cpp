// What single reports become, and what makes one fix of several.
#include <gmock/gmock.h>

#include <string>
#include <tuple>

#include "hosts/services/location/FixEpochs.h"
#include "hosts/services/location/GpsdAddress.h"
#include "hosts/services/location/GpsdReport.h"
#include "hosts/services/location/KeptAltitude.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> timesOf(const std::vector<CLLocation>& fixes) {
  std::vector<double> times;
  for (const CLLocation& fix : fixes) {
    times.push_back(fix.timestamp.timeIntervalSinceReferenceDate);
  }
  return times;
}

CLLocation locationOf(const std::string& fields) {
  GpsdDecoder decoder;
  const GpsdReport report =
      decoder.decode(R"({"class":"TPV","mode":3,"lat":1,"lon":2)" + fields + "}");
  return report.fix.value().location({0});
}

TEST(GpsdFix, HasItsAltitudeAboveMeanSeaLevel) {
  const std::tuple<const char*, double, double> cases[] = {
      // The fields, the altitude and its accuracy.
      {R"(,"altHAE":455,"altMSL":408,"alt":408,"geoidSep":46)", 408, 5},
      {R"(,"alt":408)", 408, 5},
      {R"(,"altHAE":455,"geoidSep":47.5)", 407.5, 5},
      {R"(,"alt":408,"epv":0)", 408, 5},
      {R"(,"altHAE":455,"epv":10)", 455, -1},
      {R"(,"epv":10)", 0, -1},
  };
  for (const auto& [fields, altitude, accuracy] : cases) {
    EXPECT_EQ(locationOf(fields).altitude, altitude) << fields;
    EXPECT_EQ(locationOf(fields).verticalAccuracy, accuracy) << fields;
  }
}

// Errors of 95 % become accuracies of 68 %: 7.5 times 0.61673, 5 (of 3 and 4) times 0.54463.
TEST(GpsdFix, MakesItsAccuracyOfTheErrors) {
  EXPECT_NEAR(locationOf(R"(,"eph":7.5,"epx":3,"epy":4)").horizontalAccuracy, 4.62548, 1e-5);
  EXPECT_NEAR(locationOf(R"(,"epx":3,"epy":4)").horizontalAccuracy, 2.72315, 1e-5);
  EXPECT_NEAR(locationOf(R"(,"eph":0,"epx":3,"epy":4)").horizontalAccuracy, 2.72315, 1e-5);
  for (const char* none : {R"(,"epx":3)", R"(,"eph":0)", R"(,"eph":-1)", R"(,"epx":0,"epy":4)"}) {
    EXPECT_EQ(locationOf(none).horizontalAccuracy, 5) << none;
  }
}

TEST(GpsdFix, HasACourseOnlyWhileItMoves) {
  const std::tuple<const char*, double, double> cases[] = {
      {R"(,"speed":0.24,"track":303.6)", 0.24, -1},
      {R"(,"speed":0.25,"track":303.6)", 0.25, 303.6},
      {R"(,"speed":1.5)", 1.5, -1},
      {R"(,"track":303.6)", -1, 303.6},
  };
  for (const auto& [fields, speed, course] : cases) {
    EXPECT_EQ(locationOf(fields).speed, speed) << fields;
    EXPECT_EQ(locationOf(fields).course, course) << fields;
  }
}

// 2017 begins 504921600 s after the reference date (GNU date), after a minute of 61 seconds.
TEST(GpsdDecoder, TellsALeapSecondFromTheOneAfterIt) {
  const std::pair<const char*, double> times[] = {{"2016-12-31T23:59:59.000Z", 504921599},
                                                  {"2016-12-31T23:59:60.000Z", 504921599.5},
                                                  {"2016-12-31T23:59:60.500Z", 504921599.75},
                                                  {"2017-01-01T00:00:00.000Z", 504921600}};
  GpsdDecoder decoder;
  FixEpochs epochs;
  for (const auto& [text, seconds] : times) {
    const GpsdReport report =
        decoder.decode(R"({"class":"TPV","mode":3,"time":")" + std::string(text) +
                       R"(","lat":1,"lon":2,"altMSL":3,)"
                       R"("eph":4,"epv":5,"speed":6})");
    EXPECT_THAT(timesOf(epochs.add(report.fix.value())), ElementsAre(seconds)) << text;
  }
}

TEST(GpsdDecoder, ReadsHeadings) {
  // At Zurich compasses point some 3 degrees east of true north, and gpsd 3.22 writes 2.6 there:
  // what it writes is positive to the east, and the magnetic heading is the smaller one.
  struct Case {
    const char* variation;
    const char* fields;
    std::optional<CLHeading> heading;
  };
  const Case cases[] = {
      {"2.5", R"("heading":90,"mag_st":"N")", CLHeading{90, 87.5, 5}},
      {"-2.5", R"("heading":359)", CLHeading{359, 1.5, 5}},
      {"0", R"("heading":360)", CLHeading{0, 0, 5}},
      {"0", R"("heading":90,"mag_st":"C")", CLHeading{90, 90, -1}},
      {"0", R"("heading":90,"mag_st":"M")", CLHeading{90, 90, 5}},
      // A True North compass that tells raw counts.
      {"0", R"("heading":14223)", std::nullopt},
      {"0", R"("heading":-1)", std::nullopt},
      // As gpsd 3.22 wrote it of a receiver with GST and HDT sentences.
      {"0", R"(,"time":"2026-11-23T02:11:37.700Z""heading":90.000,"dip":2.000,"acc_len":2.000)",
       CLHeading{90, 90, 5}},
  };
  for (const Case& each : cases) {
    GpsdDecoder decoder;
    decoder.decode(R"({"class":"TPV","mode":1,"magvar":)" + std::string(each.variation) + "}");
    const GpsdReport report =
        decoder.decode(R"({"class":"ATT","device":"/dev/c",)" + std::string(each.fields) + "}");
    EXPECT_EQ(report.heading, each.heading) << each.fields;
    EXPECT_EQ(report.device, "/dev/c");
  }
}

TEST(KeptAltitude, IsThatOfTheFixesBeforeForTenSeconds) {
  const struct {
    double time, altitude, accuracy, expected;
  } fixes[] = {
      {0, 0, -1, 0},                             // none known yet
      {1, 455, -1, 455},       {2, 0, -1, 455},  // above the ellipsoid
      {3, 408, 5, 408},        {4, 455, -1, 408},  {5, 0, -1, 408}, {13, 0, -1, 408},
      {13.5, 0, -1, 0},        {14, 460, -1, 460}, {15, 0, 5, 0},   {16, 80, -1, 0},  // at the sea
      {-619315184, 0, -1, 0},  // the receiver's weeks have run over
      {-619315183, 90, 5, 90},
  };
  KeptAltitude altitude;
  for (const auto& each : fixes) {
    CLLocation fix;
    fix.timestamp = {each.time};
    fix.altitude = each.altitude;
    fix.verticalAccuracy = each.accuracy;
    const CLLocation completed = altitude.completed(fix);
    EXPECT_EQ(completed.altitude, each.expected) << each.time;
    EXPECT_EQ(completed.verticalAccuracy, each.accuracy);
  }
}

GpsdFix partAt(double time, double latitude) {
  GpsdFix part;
  part.time = NSDate{time};
  part.coordinate.latitude = latitude;
  return part;
}

GpsdFix wholeAt(double time, double latitude) {
  GpsdFix part = partAt(time, latitude);
  part.threeDimensional = true;
  part.altitude = part.horizontalError = part.verticalError = part.speed = 1;
  return part;
}

TEST(FixEpochs, GiveAWholeFixAtOnceAndItsTimeOnce) {
  FixEpochs epochs;
  EXPECT_THAT(timesOf(epochs.add(wholeAt(10, 1))), ElementsAre(10));
  EXPECT_THAT(epochs.add(wholeAt(10, 2)), IsEmpty());
  EXPECT_FALSE(epochs.isWaiting());
  EXPECT_THAT(timesOf(epochs.add(wholeAt(11, 1))), ElementsAre(11));
  // A receiver is reset, or its week counter has run over: its times go on from there.
  EXPECT_THAT(timesOf(epochs.add(wholeAt(-619000000, 1))), ElementsAre(-619000000));
  EXPECT_THAT(timesOf(epochs.add(wholeAt(-618999999, 1))), ElementsAre(-618999999));
}

TEST(FixEpochs, WaitForWhatTheFixBeforeHad) {
  FixEpochs epochs;
  GpsdFix withSpeed = partAt(10, 1);
  withSpeed.speed = 1.5;
  EXPECT_THAT(epochs.add(withSpeed), IsEmpty());
  EXPECT_TRUE(epochs.isWaiting());
  EXPECT_THAT(timesOf(epochs.finish({0})), ElementsAre(10));
  // So that is all that this receiver has.
  withSpeed.time = NSDate{11};
  EXPECT_THAT(timesOf(epochs.add(withSpeed)), ElementsAre(11));
  // It has an altitude after all. The next fix waits for it, and has the last word on each value.
  GpsdFix withAltitude = partAt(11, 2);
  withAltitude.altitude = 400;
  EXPECT_THAT(epochs.add(withAltitude), IsEmpty());
  withSpeed.time = withAltitude.time = NSDate{12};
  EXPECT_THAT(epochs.add(withSpeed), IsEmpty());
  const auto done = epochs.add(withAltitude);
  ASSERT_EQ(timesOf(done), std::vector<double>{12});
  EXPECT_EQ(done[0].speed, 1.5);
  EXPECT_EQ(done[0].altitude, 400);
  EXPECT_EQ(done[0].coordinate.latitude, 2);
}

TEST(FixEpochs, AreEndedByAnotherTime) {
  FixEpochs epochs;
  EXPECT_THAT(epochs.add(partAt(10, 1)), IsEmpty());
  EXPECT_THAT(timesOf(epochs.add(wholeAt(11, 2))), ElementsAre(10, 11));
  EXPECT_THAT(epochs.add(partAt(12, 1)), IsEmpty());
  EXPECT_THAT(epochs.add(partAt(11, 2)), IsEmpty());
  EXPECT_THAT(timesOf(epochs.finish({0})), ElementsAre(12));
  EXPECT_THAT(epochs.finish({0}), IsEmpty());
}

TEST(FixEpochs, TakePartsWithoutATimeAsOfTheOneThatFollows) {
  GpsdFix untimed = wholeAt(0, 1);
  untimed.time.reset();
  FixEpochs epochs;
  EXPECT_THAT(epochs.add(untimed), IsEmpty());
  GpsdFix timed = partAt(10, 2);
  timed.threeDimensional = true;
  const auto done = epochs.add(timed);
  ASSERT_EQ(timesOf(done), std::vector<double>{10});
  EXPECT_EQ(done[0].altitude, 1);
  // One that trails is nothing new.
  EXPECT_THAT(epochs.add(untimed), IsEmpty());
  EXPECT_THAT(epochs.finish({500}), IsEmpty());
  // Without a clock in the receiver, fixes are timed as they come.
  FixEpochs clockless;
  for (const double now : {500, 501}) {
    EXPECT_THAT(clockless.add(untimed), IsEmpty());
    EXPECT_THAT(timesOf(clockless.finish({now})), ElementsAre(now));
  }
}

TEST(GpsdAddress, IsReadAsPeopleWriteIt) {
  const std::pair<const char*, GpsdAddress> addresses[] = {
      {"boat.local", {"boat.local", "2947"}},
      {":2948", {"localhost", "2948"}},
      {"192.0.2.1:1", {"192.0.2.1", "1"}},
      {"[2001:db8::1]:65535", {"2001:db8::1", "65535"}},
      {"[::1]", {"::1", "2947"}},
      {"2001:db8::1", {"2001:db8::1", "2947"}},
  };
  for (const auto& [text, address] : addresses) EXPECT_EQ(gpsdAddressOf(text), address) << text;
  for (const char* bad : {"", "boat:", "boat:0", "boat:65536", "boat:29x", "boat:-1", "[::1",
                          "[::1]2947", "[]:2947", "a b:2947", "gpsd://boat:2947"}) {
    EXPECT_EQ(gpsdAddressOf(bad), std::nullopt) << bad;
  }
  EXPECT_EQ((GpsdAddress{"::1", "2947"}).text(), "[::1]:2947");
}

}  // namespace
}  // namespace wayfell
