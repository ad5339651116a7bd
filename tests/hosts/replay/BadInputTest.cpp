// What is wrong with a recording is said by place and field, whatever the recording is.
#include <gtest/gtest.h>

#include <string>

#include "Replayed.h"

namespace wayfell {
namespace {

using std::string_literals::operator""s;

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
    {"[{\"t\":0}]", "begins with \"[{\"t\":0}]\";"},
    {"$GPGGA,123519,4807.038,N\r\n", "NMEA sentences are not read directly: run them through gpsd"},

    // JSON.
    {"{\"t\":0,\"show\":true}\n{\"t\":1,\"fix\":{\"lat", "line 2: not JSON at column 19: "},
    {"{\"t\":0,\"show\":true}\n\n{\"t\":1,\"tap\":\"\0\"}"s, "line 3: not JSON at column 15: "},
    {R"({"t":0,"fix":{"latitude":NaN,"longitude":8}})", "line 1: not JSON at column 26: "},
    {R"({"t":0,"show":true} {"t":1,"show":true})", "line 1: not JSON at column 21: "},
    {"{\"t\":0,\"suite\":{\"a\":\"\xFF\"}}", "line 1: not UTF-8"},
    {"{\"t\":0,\"suite\":{\"a\":\"\xED\xA0\x80\"}}", "line 1: not UTF-8"},  // half of a pair
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
    {R"({"t":0,"fix":7})", "line 1: fix: expected an object"},
    {R"({"t":0,"fix":{"longitude":8}})", "line 1: fix.latitude: missing"},
    {R"({"t":0,"fix":{"latitude":"47","longitude":8}})", "line 1: fix.latitude: expected a number"},
    {R"({"t":0,"fix":{"latitude":47,"longitude":8,"sped":1}})", "line 1: fix.sped: unknown field"},
    {R"({"t":0,"fixes":[]})", "line 1: fixes: expected at least one fix"},
    {R"({"t":0,"fixes":[{"latitude":1,"longitude":2},{"latitude":1}]})",
     "line 1: fixes[1].longitude: missing"},
    {R"({"t":0,"heading":{}})", "line 1: heading: expected trueHeading or magneticHeading"},
    {R"({"t":0,"authorization":5})", "line 1: authorization: expected an integer from 0 to 4"},
    {R"({"t":0,"segment":1.0})", "line 1: segment: expected an integer from 0 to 4"},
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

    // gpsd's reports.
    {R"({"class":"VERSION","release":"3.22"})", "no fix with a time in gpsd's reports"},
    {"{\"class\":\"VERSION\"}\n{\"class\":\"TPV\",\"mode\":3,\"la",
     "line 2: not JSON at column 28: "},
    {"{\"class\":\"TPV\",\"mode\":2,\"time\":\"2021-01-02T03:04:05.5Z\",\"lat\":1,\"lon\":2}\n"
     "{\"class\":\"TPV\",\"mode\":2,\"time\":\"2021-01-02T03:04:03Z\",\"lat\":1,\"lon\":2}\n",
     "line 2: time: 2.5 seconds before the time of the fix before"},

    // GPX.
    {"<gpx>\n<trk>\n</gpx>", "line 3: not well-formed XML: "},
    {"<html><trk/></html>", "not GPX: the document is of type <html>"},
    {"<gpx><wpt lat=\"1\" lon=\"2\"/><trk><trkseg/></trk></gpx>", "no track points"},
    {"<gpx><name>\xFF</name></gpx>", "not UTF-8"},
};

TEST(BadInput, IsExplainedByPlaceAndField) {
  for (const BadInput& bad : kBadInputs) {
    const std::string complaint = complaintAbout(bad.recording);
    EXPECT_EQ(complaint.substr(0, bad.complaint.size()), bad.complaint)
        << bad.recording.substr(0, 200) << "\n"
        << complaint;
  }
}

TEST(BadInput, OfATrackPointIsExplainedByItsNumber) {
  struct Case {
    const char* points;
    const char* complaint;
  };
  const Case cases[] = {
      {R"(<trkpt lat="1"/>)", "track point 1: lon: missing"},
      {R"(<trkpt lat="nan" lon="2"/>)", "track point 1: lat: expected a number"},
      {R"(<trkpt lat="90.1" lon="2"/>)", "track point 1: lat: beyond 90 degrees"},
      {R"(<trkpt lat="1" lon="-181"/>)", "track point 1: lon: beyond 180 degrees"},
      {R"(<trkpt lat="1" lon="2"/><trkpt lat="1" lon="2"><ele>high</ele></trkpt>)",
       "track point 2: ele: expected a number"},
      {R"(<trkpt lat="1" lon="2"><hdop/></trkpt>)", "track point 1: hdop: expected a number"},
      {R"(<trkpt lat="1" lon="2"><time>yesterday</time></trkpt>)",
       "track point 1: time: expected the like of 2010-10-04T05:13:19Z"},
      {R"(<trkpt lat="1" lon="2"><time>2001-01-01T00:00:09Z</time></trkpt>
          <trkpt lat="1" lon="2"/>)",
       "track point 2: time: missing, while other points have one"},
      {R"(<trkpt lat="1" lon="2"><time>2001-01-01T00:00:09Z</time></trkpt>
          <trkpt lat="1" lon="2"><time>2001-01-01T00:00:08.5Z</time></trkpt>)",
       "track point 2: time: 0.5 seconds before the time of the point before"},
  };
  for (const Case& bad : cases) {
    EXPECT_EQ(
        complaintAbout("<gpx><trk><trkseg>" + std::string(bad.points) + "</trkseg></trk></gpx>"),
        bad.complaint);
  }
}

}  // namespace
}  // namespace wayfell
