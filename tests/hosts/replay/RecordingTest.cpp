// What the three kinds of recording are read as, and how what is wrong with one is said: by place
// and field. What real programs write is in corpus/.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "hosts/replay/Recording.h"
#include "hosts/replay/RecordingChoice.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::StartsWith;

std::vector<Event> eventsOf(std::string_view recording) {
  const auto opened = openRecording(InputBytes(bytesOfText(recording)));
  std::vector<Event> events;
  while (auto event = opened->next()) events.push_back(*std::move(event));
  return events;
}

// What a recording that has nothing but fixes says of them.
std::vector<CLLocation> fixesOf(std::string_view recording) {
  std::vector<CLLocation> fixes;
  for (const Event& event : eventsOf(recording)) {
    const auto& delivered = std::get<event::Locate>(event.action).fixes;
    fixes.insert(fixes.end(), delivered.begin(), delivered.end());
  }
  return fixes;
}

// What is wrong with a recording, or "" when nothing is.
std::string complaintAbout(std::string_view recording) {
  try {
    eventsOf(recording);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

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

struct BadInput {
  std::string recording;
  std::string complaint;  // it begins with this
};

// Each after a good line, where there is room for one.
const BadInput kBadInputs[] = {
    // What it is at all.
    {"", "empty"},
    {"\0\1"s, "begins with the bytes 00 01; a GPX track"},
    {"once upon a time", "begins with \"once upon a \";"},
    {"<3", "begins with \"<3\";"},
    {"{,", "begins with \"{,\";"},

    // JSON.
    {"{\"t\":0,\"show\":true}\n{\"t\":1,\"fix\":{\"lat", "line 2: not JSON at column 19: "},
    {"{\"t\":0,\"show\":true}\n\n{\"t\":1,\"tap\":\"\0\"}"s, "line 3: not JSON at column 15: "},
    {R"({"t":0,"fix":{"latitude":NaN,"longitude":8}})", "line 1: not JSON at column 26: "},
    {R"({"t":0,"show":true} {"t":1,"show":true})", "line 1: not JSON at column 21: "},
    {"{\"t\":0,\"suite\":{\"a\":\"\xFF\"}}", "line 1: not UTF-8"},
    {"{\"t\":0,\"suite\":{\"a\":" + std::string(100, '['),
     "line 1: lists and objects nested too deeply"},
    {"{\"t\":0,\"show\":true}\n{\"t\":1" + std::string(1 << 20, ' '), "line 2: longer than 1 MiB"},
    {"{\"t\":0,\"show\":true}\n7", "line 2: expected an object"},

    // Events and their times.
    {R"({"show":true})", "line 1: t: missing"},
    {R"({"t":"0","show":true})", "line 1: t: expected a number"},
    {R"({"t":1e300,"show":true})",
     "line 1: t: more than 10000000000 seconds from the reference date"},
    {"{\"t\":1.5,\"show\":true}\n{\"t\":1,\"show\":true}",
     "line 2: t: 1 is before 1.5, the time of the event before"},
    {R"({"t":0,"t":1,"show":true})", "line 1: t: given twice"},
    {R"({"t":0})", "line 1: no event beside t"},
    {R"({"t":0,"fly":true})", "line 1: fly: unknown event"},
    {R"({"t":0,"show":true,"appear":true})", "line 1: appear: a second event on the line"},
    {R"({"t":0,"show":1})", "line 1: show: expected true"},

    // Fields.
    {R"({"t":0,"fix":{"longitude":8}})", "line 1: fix.latitude: missing"},
    {R"({"t":0,"fix":{"latitude":"47","longitude":8}})", "line 1: fix.latitude: expected a number"},
    {R"({"t":0,"fix":{"latitude":47,"longitude":8,"sped":1}})", "line 1: fix.sped: unknown field"},
    {R"({"t":0,"fixes":[]})", "line 1: fixes: expected at least one fix"},
    {R"({"t":0,"fixes":[{"latitude":1,"longitude":2},{"latitude":1}]})",
     "line 1: fixes[1].longitude: missing"},
    {R"({"t":0,"heading":{}})", "line 1: heading: expected trueHeading or magneticHeading"},
    {R"({"t":0,"authorization":5})", "line 1: authorization: expected an integer from 0 to 4"},
    {R"({"t":0,"course":1})", "line 1: course: expected true or false"},
    {R"({"t":0,"placemark":{"town":"A"}})", "line 1: placemark.town: unknown field"},
    {R"({"t":0,"tap":"altitudeLabel"})", "line 1: tap: expected \"toggleViewButton\""},
    {R"({"t":0,"call":"viewDidLoad"})", "line 1: call: expected \"openAppWithCoordinate\""},
    {R"({"t":0,"call":"updateCurrentLocationDisplayWithUnits"})", "line 1: index: missing"},
    {R"({"t":0,"call":"openAppWithCoordinate","index":1})",
     "line 1: index: openAppWithCoordinate takes none"},
    {R"({"t":0,"show":true,"index":1})", "line 1: index: goes with a call"},
    {R"({"t":0,"suite":{"a":1,"a":2}})", "line 1: suite.a: given twice"},
    {R"({"t":0,"local":{"a":{"b":[1,null]}}})", "line 1: local.a.b[1]: expected a value"},

    // GPX.
    {"<gpx>\n<trk>\n</gpx>", "line 3: not well-formed XML: "},
    {"<?xml version='1.0' encoding='ISO-8859-1'?><gpx>" + std::string(1'000'000, '\xE9') + "</gpz>",
     "line 1: not well-formed XML: "},
    {"\xFF\xFE<\0g\0p\0x\0>\0\n\0\0\xD8"s, "line 2: not UTF-16LE, the encoding of the file"},
    {"\xFF\xFE{\0\"\0"s, "this is UTF-16: iconv -f UTF-16 -t UTF-8 FILE"},
};

TEST(BadInput, IsExplainedByPlaceAndField) {
  for (const BadInput& bad : kBadInputs) {
    EXPECT_THAT(complaintAbout(bad.recording), StartsWith(bad.complaint));
  }
}

}  // namespace
}  // namespace wayfell
