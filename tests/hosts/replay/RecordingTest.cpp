// What the three kinds of recording are read as.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "Replayed.h"
#include "hosts/replay/Recording.h"
#include "hosts/replay/SettingChanges.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

using testing::ElementsAre;

TEST(Settings, OfTheCommandLineAreSplitAtTheFirstSign) {
  EXPECT_EQ(settingOfText("k=a=b").at("k"), PropertyValue("a=b"));
  EXPECT_EQ(settingOfText("k=").at("k"), PropertyValue(""));
  for (const char* none : {"units", "=1", "k=\xFF"}) {
    EXPECT_THROW(settingOfText(none), InputError) << none;
  }
}

TEST(Scenario, FillsInWhatAFixAndAHeadingLack) {
  const auto events = eventsOf(
      "\xEF\xBB\xBF\n"
      R"({"fix":{"latitude":1,"longitude":-2},"t":3.5})"
      "\r\n"
      R"({"t":4,"heading":{"trueHeading":20}})"
      "\n"
      R"({"t":4,"heading":{"magneticHeading":21,"headingAccuracy":-1}})");
  ASSERT_EQ(events.size(), 3U);
  EXPECT_EQ(events[0].t, 3.5);
  EXPECT_THAT(std::get<event::Locate>(events[0].action).fixes,
              ElementsAre(CLLocation{{1, -2}, 0, 5, 5, -1, -1, {3.5}}));
  EXPECT_EQ(std::get<event::Turn>(events[1].action).heading, (CLHeading{20, 20, 5}));
  EXPECT_EQ(std::get<event::Turn>(events[2].action).heading, (CLHeading{-1, 21, -1}));
}

TEST(Gpx, TakesAccuraciesSpeedAndCourseAsGiven) {
  // 1.0 has speed and course of its own; another file's prefix changes nothing.
  EXPECT_THAT(fixesOf(R"(<?xml version="1.0"?>
    <gpx version="1.0" xmlns="http://www.topografix.com/GPX/1/0">
      <wpt lat="5" lon="5"/><rte><rtept lat="5" lon="5"/></rte>
      <trk><trkseg/><trkseg>
        <trkpt lat="45.5" lon=" 14.25 "><ele>733.5</ele><time>2001-01-01T00:01:00.5Z</time>
          <course>270.5</course><speed>+1.25</speed><hdop>1.5</hdop><vdop>2</vdop></trkpt>
      </trkseg></trk></gpx>)"),
              ElementsAre(CLLocation{{45.5, 14.25}, 733.5, 7.5, 10, 1.25, 270.5, {60.5}}));
  EXPECT_THAT(fixesOf(R"(<g:gpx version="1.1" xmlns:g="http://www.topografix.com/GPX/1/1">
      <g:trk><g:trkseg>
        <g:trkpt lat="1" lon="2"><g:ele>3</g:ele><g:time>2001-01-01T00:00:00Z</g:time>
          <g:extensions><x:TrackPointExtension><x:speed>4</x:speed><x:course>5</x:course>
          </x:TrackPointExtension></g:extensions></g:trkpt>
      </g:trkseg></g:trk>
      <g:trk><g:trkseg>
        <g:trkpt lat="1" lon="2"><g:vdop>2</g:vdop><g:time>2001-01-01T00:00:00Z</g:time></g:trkpt>
      </g:trkseg></g:trk></g:gpx>)"),
              ElementsAre(CLLocation{{1, 2}, 3, 5, 5, 4, 5, {0}},
                          CLLocation{{1, 2}, 0, 5, 10, -1, -1, {0}}));
}

TEST(Gpx, WithoutTimesGoesASecondAPointAndSaysSo) {
  const std::string track = R"(<trk><trkseg><trkpt lat="1" lon="2"/></trkseg>
      <trkseg><trkpt lat="3" lon="4"/></trkseg></trk>)";
  const std::string timed = R"(<trk><trkseg><trkpt lat="5" lon="6">
      <time>2001-01-01T01:00:00Z</time></trkpt></trkseg></trk>)";
  const auto open = [](const std::string& tracks) {
    // The text is read when it is opened.
    return openRecording(InputBytes(bytesOfText("<gpx>" + tracks + "</gpx>")));
  };
  const auto untimed = open(track);
  EXPECT_EQ(untimed->note(), "the track has no times: its points are taken one second apart");
  EXPECT_EQ(untimed->next()->t, 0);
  EXPECT_EQ(untimed->next()->t, 1);
  // Tracks without times are passed over beside others that have them, before or after.
  for (const std::string& both : {track + timed, timed + track}) {
    const auto mixed = open(both);
    EXPECT_EQ(mixed->note(), "2 track points are passed over, as their tracks have no times");
    EXPECT_EQ(mixed->next()->t, 3600);
    EXPECT_FALSE(mixed->next());
  }
  EXPECT_FALSE(open(timed)->note());
}

// Reports as gpsd 3.22 writes them, with values of our own. 2021-01-02T03:04 begins 631249440 s
// after the reference date (GNU date).
TEST(Gpsd, PlacesReportsInTime) {
  const auto events = eventsOf(R"({"class":"VERSION","release":"3.22"}
{"class":"TPV","mode":1}
{"class":"ATT","heading":10}
{"class":"TPV","mode":3,"lat":47.5,"lon":8.5}
{"class":"TPV","mode":2,"time":"2021-01-02T03:04:05.250Z","lat":47.5,"lon":8.5}
{"class":"SKY","satellites":[{"PRN":1,"el":2,"az":3,"ss":4,"used":true}]}
{"class":"ATT","heading":1}
{"class":"ATT","time":"2021-01-02T03:04:06.000Z","heading":359}
{"class":"TPV","mode":2,"time":"2021-01-02T03:04:05.750Z","lat":-47.5,"lon":-8.5}
{"class":"TPV","mode":2,"time":"2021-01-02T03:04:05.500Z","lat":1,"lon":2}
{"class":"TPV","mode":3,"lat":1,"lon":2}
)");
  // It begins with the first fix that has a time. The next fix is older than the heading, by
  // another clock: it keeps its time, and comes when the heading came. Then the receiver sets its
  // clock back by less than a second, and the last report has no time at all.
  constexpr double kMinute = 631249440;
  std::vector<double> times;
  std::vector<double> fixTimes;
  for (const Event& each : events) {
    times.push_back(each.t - kMinute);
    if (const auto* located = std::get_if<event::Locate>(&each.action)) {
      fixTimes.push_back(located->fixes.at(0).timestamp.timeIntervalSinceReferenceDate - kMinute);
    }
  }
  EXPECT_THAT(times, ElementsAre(5.25, 5.25, 6, 6, 6, 6));
  EXPECT_THAT(fixTimes, ElementsAre(5.25, 5.75, 5.5, 5.5));
}

TEST(Gpsd, PassesOverWhatItsLibraryCannotRead) {
  const std::string fix =
      R"({"class":"TPV","mode":2,"time":"2021-01-02T03:04:05.5Z","lat":1,"lon":2})"
      "\n";
  for (const char* odd :
       {R"({"class":"TPV","mode":2,"devices":[{"class":"DEVICE","path":"x"}]})",
        R"({"mood":[1],"class":"TPV","mode":2,"lat":3,"lon":4})",
        R"({"class":"TPV","mode":2,"lat":"3","lon":4})", R"({"class":"TPV"})",
        R"({"class":"ATT","heading":"north"})", R"({"class":["TPV"]})", R"({"class":"IMU"})"}) {
    EXPECT_EQ(fixesOf(fix + odd + "\n" + fix).size(), 2U) << odd;
  }
}

}  // namespace
}  // namespace wayfell
