// The whole widget, replayed. Expected values are worked by hand from the rules and formulas, and
// show in which order things happen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <nlohmann/json.hpp>
#include <numbers>
#include <random>
#include <string>

#include "hosts/replay/Recording.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Snapshot.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

using namespace nlohmann::literals;
using nlohmann::json;
using testing::ElementsAre;

// The snapshots, the last of which is the end's.
std::vector<std::string> replayedLines(std::string_view recording,
                                       std::optional<double> every = {}) {
  std::vector<std::string> lines;
  ReplayedWidget widget;
  const auto show = [&lines](ReplayedWidget& shown) {
    lines.push_back(snapshotLine(shown));
    shown.host().urls.requests.clear();
    return true;
  };
  replay(*openRecording(InputBytes(bytesOfText(recording))), widget, every, {show});
  return lines;
}

// The same with each timer fired at each of its dates.
std::vector<std::string> linesOfEachFiring(std::string_view text, double every) {
  std::vector<std::string> lines;
  ReplayedWidget widget;
  SimulatedRunLoop& loop = widget.host().loop;
  const auto show = [&] {
    lines.push_back(snapshotLine(widget));
    widget.host().urls.requests.clear();
  };
  const auto recording = openRecording(InputBytes(bytesOfText(text)));
  auto event = recording->next();
  const double start = event->t;
  double spans = 1;
  const auto showTimed = [&](auto isDue) {
    for (; isDue(start + spans * every); ++spans) {
      loop.advanceTo({start + spans * every});
      show();
    }
  };
  for (loop.startAt({start}); event; event = recording->next()) {
    showTimed([&](double due) { return due < event->t; });
    loop.advanceTo({event->t});
    widget.apply(event->action);
    if (std::holds_alternative<event::Show>(event->action)) show();
  }
  showTimed([&](double due) { return due <= loop.now().timeIntervalSinceReferenceDate; });
  show();
  return lines;
}

// A walk with gaps, in which the user and the containing app do something now and then.
std::string randomScenario(unsigned seed) {
  constexpr double kSteps[] = {0, 0.3, 1, 1, 1, 2, 4};
  constexpr double kGaps[] = {11, 59.9, 61, 68.5, 300.1, 3600.7, 20000};
  constexpr const char* kEvents[] = {
      R"("show":true)",
      R"("appear":true)",
      R"("disappear":true)",
      R"("tap":"toggleViewButton")",
      R"("tap":"openLabel")",
      R"("segment":3)",
      R"("heading":{"trueHeading":90})",
      R"("suite":{"units":2,"speed":2,"distance":900.5,"time":3601})",
      R"("suite":{"units":1,"speed":7,"distance":70})",
      R"("local":{"units":9})",
      R"("suite":{"hasWaypoint":true,"waypointLatitude":1.5})",
      R"("course":true)"};
  std::mt19937 random(seed);
  const auto oneOf = [&random](const auto& table) { return table[random() % std::size(table)]; };
  double t = seed % 2 == 0 ? 0 : 8e9 + 0.1;
  double latitude = 1;
  std::string text;
  for (int i = 0; i < 40; ++i) {
    t += random() % 4 == 0 ? oneOf(kGaps) : oneOf(kSteps);
    if (seed == 0 && i == 20) t += 2 * 86400;
    latitude += oneOf(std::array{0.0, 1e-6, 3e-5, 3e-4, 0.5});
    const std::string fix = R"("fix":{"longitude":1,"speed":)" + shortestText(oneOf(kSteps)) +
                            R"(,"latitude":)" + shortestText(latitude) + "}";
    text += "{\"t\":" + shortestText(t) + "," + (random() % 2 == 0 ? fix : oneOf(kEvents)) + "}\n";
  }
  return text;
}

std::vector<json> replayed(std::string_view recording, std::optional<double> every = {}) {
  std::vector<json> snapshots;
  for (const std::string& line : replayedLines(recording, every)) {
    snapshots.push_back(json::parse(line));
  }
  return snapshots;
}

json lastOf(std::string_view recording) { return replayed(recording).back(); }

// All that is expected stands in what is shown.
void expectIn(const json& shown, const json& expected) {
  for (const auto& [key, value] : expected.items()) {
    if (value.is_object() && !value.empty()) {
      expectIn(shown.at(key), value);
    } else {
      EXPECT_EQ(shown.at(key), value) << key;
    }
  }
}

std::vector<double> timesOf(const std::vector<json>& snapshots) {
  std::vector<double> times;
  times.reserve(snapshots.size());
  for (const json& snapshot : snapshots) times.push_back(snapshot["t"].get<double>());
  return times;
}

TEST(Replay, FirstRunShowsTheEmptyExpandedLayout) {
  const json first = lastOf(R"({"t":7,"show":true})");
  EXPECT_EQ(first["button"], std::numbers::pi / 2);
  expectIn(first, R"({"t":7.0,"height":286.0,"tape":null,"arrow":null,"segment":0,"opened":[],
      "hidden":["compassArrowView","miniTrackDataView","waypointDataView"],
      "lookups":0,"timers":1,"suite":{},"local":{"units":0},
      "labels":{"latLongLabel":"Latitude\nLongitude","speedNameLabel":"Pace",
        "speedLabel":"00:00 /mi","timeLabel":"00:00","miniDistanceLabel":"0.0 ft","etaLabel":"",
        "altitudeLabel":null,"userCoordinateLabel":null}})"_json);
}

TEST(Replay, SnapshotHasItsFieldsInTheirOrder) {
  const auto keys = [](const nlohmann::ordered_json& object) {
    std::string names;
    for (const auto& [name, value] : object.items()) names += name + ' ';
    return names;
  };
  const auto ordered =
      nlohmann::ordered_json::parse(replayedLines(R"({"t":0,"show":true})").back());
  EXPECT_EQ(keys(ordered),
            "t height labels hidden tape segment arrow button opened lookups timers motion "
            "accuracy suite local ");
  EXPECT_EQ(keys(ordered["motion"]),
            "averageSpeed averageAltitude verticalSpeed glideRatio slope slopeAngle "
            "altitudeAscent altitudeDescent ");
  EXPECT_EQ(keys(ordered["accuracy"]), "averageHorizontalAccuracy averageVerticalAccuracy ");
  EXPECT_EQ(keys(ordered["labels"]),
            "compassLabel headingLabel altitudeLabel speedLabel timeLabel distanceLabel "
            "userCoordinateLabel utmZoneLabel latLongLabel etaLabel waypointDistanceLabel "
            "altitudeNameLabel speedNameLabel waypointDistanceNameLabel etaNameLabel "
            "timeNameLabel distanceNameLabel miniTimeNameLabel miniDistanceNameLabel "
            "miniTimeLabel miniDistanceLabel openLabel openMiniLabel addressLabel ");
}

// 123.4 m x 3.2808399 = 404.86 ft; 90/360 of the tape's 300 points, to the left; 88 x 6400/360 =
// 1564.4 mils. An arrival is never, at no speed.
TEST(Replay, FixesAndHeadingsFillTheRows) {
  const std::string events = R"(
{"t":1,"fix":{"latitude":0.5,"longitude":0.25,"altitude":123.4}}
{"t":1,"heading":{"trueHeading":90,"magneticHeading":88}}
)";
  expectIn(lastOf(R"({"t":0,"suite":{"hasWaypoint":true}})" + events),
           R"({"tape":-75.0,"arrow":{"heading":90.0},"accuracy":{"averageHorizontalAccuracy":5.0},
      "labels":{"altitudeLabel":"405 ft","headingLabel":"90°","etaLabel":"0 m",
        "userCoordinateLabel":"0.50000°N, 0.25000°E"}})"_json);
  // Booleans are copied as integers.
  expectIn(lastOf(R"({"t":0,"suite":{"units":1,"useMils":true,"compassHeading":1,)"
                  R"("coordinateUnits":2}})" +
                  events),
           R"({"segment":2,"local":{"useMils":1},
      "labels":{"altitudeLabel":"123 m","headingLabel":"1564 mils",
        "userCoordinateLabel":"0° 30' 0.00'' N, 0° 15' 0.00'' E"}})"_json);
  expectIn(lastOf(R"({"t":0,"course":true})" + events +
                  R"({"t":2,"fix":{"latitude":0,"longitude":0,"course":180}})"),
           R"({"tape":-150.0,"labels":{"headingLabel":"180°"}})"_json);
}

TEST(Replay, FixesInOneListArriveInOneCall) {
  expectIn(
      lastOf(R"({"t":9,"fixes":[{"latitude":1,"longitude":1,"horizontalAccuracy":7,"timestamp":8},)"
             R"({"latitude":2,"longitude":2,"horizontalAccuracy":9}]})"),
      R"({"labels":{"userCoordinateLabel":"2.00000°N, 2.00000°E"},
          "accuracy":{"averageHorizontalAccuracy":8.0}})"_json);
}

// Before the first fix the position is 0/0, whose letters are S and W.
TEST(Replay, PickedSegmentLastsUntilTheNextAppearance) {
  const auto shown = replayed(R"({"t":0,"segment":2}
{"t":0,"show":true}
{"t":1,"disappear":true}
{"t":2,"appear":true})");
  expectIn(shown[0], R"({"segment":2,"local":{"coordinateUnits":2},
      "labels":{"userCoordinateLabel":"0° 0' 0.00'' S, 0° 0' 0.00'' W"}})"_json);
  EXPECT_EQ(shown[1]["segment"], 0);
}

TEST(Replay, UpdatesReachTheWidgetOnlyWhileTheyRun) {
  const auto altitudeAfter = [](const std::string& events) {
    return lastOf(events +
                  "{\"t\":5,\"fix\":{\"latitude\":1,\"longitude\":1}}")["labels"]["altitudeLabel"];
  };
  for (const int status : {0, 1, 2}) {
    EXPECT_EQ(altitudeAfter("{\"t\":0,\"authorization\":" + std::to_string(status) + "}\n"),
              nullptr);
  }
  // Granting it later changes nothing before the next appearance.
  const std::string granted =
      "{\"t\":0,\"authorization\":0}\n{\"t\":1,\"show\":true}\n{\"t\":2,\"authorization\":3}\n";
  EXPECT_EQ(altitudeAfter(granted), nullptr);
  EXPECT_EQ(altitudeAfter(granted + "{\"t\":3,\"appear\":true}\n"), "0 ft");
  // Fixes come back with the next appearance, and headings never.
  expectIn(lastOf(R"({"t":0,"heading":{"trueHeading":10}}
{"t":1,"disappear":true}
{"t":2,"fix":{"latitude":1,"longitude":1}}
{"t":2,"heading":{"trueHeading":20}}
{"t":3,"appear":true}
{"t":4,"fix":{"latitude":2,"longitude":2}}
{"t":4,"heading":{"trueHeading":30}})"),
           R"({"labels":{"headingLabel":"10°","userCoordinateLabel":"2.00000°N, 2.00000°E"},
               "accuracy":{"averageHorizontalAccuracy":5.0}})"_json);
}

TEST(Replay, LoadsBeforeTheFirstEventThatNeedsTheWidget) {
  const auto shown = replayed(R"({"t":0,"suite":{"time":60,"units":1}}
{"t":0,"local":{"selectedDatum":"WGS 1984---Global Definition"}}
{"t":10,"placemark":null}
{"t":10.25,"course":false}
{"t":12.25,"appear":true}
{"t":12.5,"appear":true})",
                              3);
  EXPECT_THAT(timesOf(shown), ElementsAre(3, 6, 9, 12, 12.5));
  expectIn(shown[3], R"({"height":0.0,"timers":0,"suite":{"time":60},"labels":{"openLabel":null},
      "motion":{"averageSpeed":0.0}})"_json);
  // Each appearance adds a timer.
  expectIn(shown[4], R"({"height":286.0,"timers":2,"labels":{"timeLabel":"01:00"}})"_json);
  // At the latest before the end.
  EXPECT_EQ(lastOf(R"({"t":0,"suite":{"viewHidden":true}})")["height"], 78.0);
}

TEST(Replay, TimersDueAtAnEventFireBeforeIt) {
  const auto shown = replayed(R"({"t":0,"show":true}
{"t":0.5,"suite":{"time":5}}
{"t":0.5,"show":true}
{"t":0.75,"show":true}
{"t":1,"show":true})");
  EXPECT_EQ(shown[2]["labels"]["timeLabel"], "00:00");
  EXPECT_EQ(shown[3]["labels"]["timeLabel"], "00:05");
}

TEST(Replay, TimedSnapshotsShowWhatTheirInstantEndsWith) {
  const auto shown = replayed(R"({"t":100,"heading":{"trueHeading":1}}
{"t":101,"heading":{"trueHeading":2}}
{"t":101,"heading":{"trueHeading":3}}
{"t":102.5,"show":true}
{"t":103,"heading":{"trueHeading":4}})",
                              1);
  EXPECT_THAT(timesOf(shown), ElementsAre(101, 102, 102.5, 103, 103));
  EXPECT_EQ(shown[0]["labels"]["headingLabel"], "3°");
  EXPECT_EQ(shown[3]["labels"]["headingLabel"], "4°");
}

TEST(Replay, GapsArePassedAsIfEachTimerHadFired) {
  for (unsigned seed = 0; seed < 16; ++seed) {
    const std::string scenario = randomScenario(seed);
    EXPECT_EQ(replayedLines(scenario, 97.3), linesOfEachFiring(scenario, 97.3)) << scenario;
  }
}

// A year has 31,536,000 seconds; the snapshot of the last comes with the event.
TEST(Replay, ThousandsOfEqualSnapshotsAreLeftOut) {
  const std::string year = R"({"t":0.5,"show":true}
{"t":31536000.5,"show":true})";
  const std::vector<json> shown = replayed(year, 1);
  ASSERT_LT(shown.size(), 40U);
  EXPECT_EQ(shown[1]["t"], 1.5);
  EXPECT_EQ(shown[shown.size() - 4]["t"], 31535999.5);
  EXPECT_EQ(replayedLines(year, 31536000.0 / kMostAlike).size(), kMostAlike + 3);
}

TEST(Replay, StandsStillAfterSevenSecondsWithoutAFix) {
  // 0.0001 degrees of latitude at the equator are 11.0574 m (radius of curvature of the meridian
  // there: 6335439.3 m), walked in 4 s: 2.764357 m/s, or 361.7 s per kilometre.
  const auto shown = replayed(R"({"t":0,"suite":{"units":1}}
{"t":0,"fix":{"latitude":0,"longitude":0}}
{"t":4,"fix":{"latitude":0.0001,"longitude":0}}
{"t":8,"fix":{"latitude":0.0002,"longitude":0}}
{"t":12,"fix":{"latitude":0.0003,"longitude":0}}
{"t":16,"fix":{"latitude":0.0004,"longitude":0}}
{"t":22.5,"show":true}
{"t":23,"show":true}
{"t":23.5,"show":true})");
  EXPECT_NEAR(shown[0]["motion"]["averageSpeed"].get<double>(), 2.764357, 1e-6);
  EXPECT_EQ(shown[0]["labels"]["speedLabel"], "06:01 /km");
  EXPECT_EQ(shown[1]["motion"]["averageSpeed"], 0.0);
  EXPECT_EQ(shown[2]["labels"]["speedLabel"], "00:00 /km");
}

TEST(Replay, AddressesAreLookedUpOnceAMinuteAndNameThePlace) {
  const auto shown = replayed(
      R"({"t":0,"placemark":{"street":"12 Main St","city":"Springfield","state":"IL"}}
{"t":0,"local":{"addressDate":-30}}
{"t":30,"fix":{"latitude":44.5,"longitude":-93.25}}
{"t":30,"show":true}
{"t":31,"fix":{"latitude":44.5,"longitude":-93.25}}
{"t":31,"call":"openAppWithCoordinate"}
{"t":31,"tap":"openMiniLabel"}
{"t":31,"show":true}
{"t":90,"placemark":null}
{"t":92,"fix":{"latitude":44.5,"longitude":-93.25}}
{"t":92,"call":"openAppWithCoordinate"}
{"t":92,"call":"updateCurrentLocationDisplayWithUnits","index":0})");
  // 60 s after the last one, which is not over 60.
  expectIn(shown[0], R"({"lookups":0,"local":{"addressDate":-30.0}})"_json);
  expectIn(shown[1], R"({"lookups":1,"local":{"addressDate":31.0},
      "suite":{"widgetAddressString":"12 Main St, Springfield, IL"},
      "labels":{"addressLabel":"12 Main St, Springfield, IL"},
      "opened":["wayfell://12_Main_St__Springfield__IL/44.500000/-93.250000",
                "wayfell://openFromWidget"]})"_json);
  // A dash may not stand in a URL.
  expectIn(shown[2], R"({"opened":[null],"labels":{"addressLabel":"–, –, –",
      "userCoordinateLabel":"44.500000\n-93.250000","utmZoneLabel":""}})"_json);
}

TEST(Replay, NumbersThatAreNoneAreTexts) {
  // The second fix has the first one's time and a speed of its own: the altitude rises from 0 to
  // its mean in no time.
  const auto verticalSpeed = [](const std::string& altitude) {
    const std::string fix =
        R"({"t":0,"fix":{"latitude":1,"longitude":1,"speed":1,"altitude":)" + altitude + "}}\n";
    return lastOf(fix + fix)["motion"]["verticalSpeed"];
  };
  EXPECT_EQ(verticalSpeed("5"), "inf");
  EXPECT_EQ(verticalSpeed("-5"), "-inf");
  EXPECT_EQ(verticalSpeed("0"), "nan");
}

TEST(Replay, SettingsKeepTheirTypesAndCanBeFedBack) {
  const std::string settings = R"({"a":1,"b":1.0,"c":true,"d":"1","e":[1,2.5],"f":{"g":"h"}})";
  const json first =
      lastOf("{\"t\":0,\"suite\":" + settings + "}\n{\"t\":0,\"suite\":{\"d\":null}}\n" +
             R"({"t":0.1,"fix":{"latitude":0.1,"longitude":1e-7}})");
  EXPECT_EQ(
      first["suite"].dump(),
      R"({"a":1,"b":1.0,"c":true,"e":[1,2.5],"f":{"g":"h"},"widgetAddressString":"–, –, –"})");
  EXPECT_EQ(first["local"]["addressDate"], 0.1);
  const json second = lastOf("{\"t\":50,\"suite\":" + first["suite"].dump() + "}\n" +
                             "{\"t\":50,\"local\":" + first["local"].dump() + "}\n" +
                             R"({"t":50,"fix":{"latitude":0.1,"longitude":1e-7}})");
  EXPECT_EQ(second["suite"], first["suite"]);
  EXPECT_EQ(second["local"], first["local"]);
  EXPECT_EQ(second["lookups"], 0);  // within the minute of the address date that was fed back
}

}  // namespace
}  // namespace wayfell
