// The whole widget, replayed. Expected values are worked by hand from the rules and formulas, and
// show in which order things happen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "Replayed.h"

namespace wayfell {
namespace {

using nlohmann::json;
using testing::ElementsAre;

std::vector<double> timesOf(const std::vector<json>& snapshots) {
  std::vector<double> times;
  for (const json& snapshot : snapshots) times.push_back(snapshot["t"].get<double>());
  return times;
}

TEST(Replay, FirstRunShowsTheEmptyExpandedLayout) {
  const json first = lastOf(R"({"t":7,"show":true})");
  EXPECT_EQ(first["t"], 7.0);
  EXPECT_EQ(first["height"], 286.0);
  EXPECT_EQ(first["hidden"], json({"compassArrowView", "miniTrackDataView", "waypointDataView"}));
  EXPECT_EQ(first["tape"], nullptr);
  EXPECT_EQ(first["arrow"], nullptr);
  EXPECT_EQ(first["segment"], 0);
  EXPECT_EQ(first["button"], std::numbers::pi / 2);
  EXPECT_EQ(first["opened"], json::array());
  EXPECT_EQ(first["lookups"], 0);
  EXPECT_EQ(first["timers"], 1);
  EXPECT_EQ(first["suite"], json::object());
  EXPECT_EQ(first["local"]["units"], 0);
  const json& labels = first["labels"];
  EXPECT_EQ(labels["latLongLabel"], "Latitude\nLongitude");
  EXPECT_EQ(labels["speedNameLabel"], "Pace");
  EXPECT_EQ(labels["speedLabel"], "00:00 /mi");
  EXPECT_EQ(labels["timeLabel"], "00:00");
  EXPECT_EQ(labels["miniDistanceLabel"], "0.0 ft");
  EXPECT_EQ(labels["etaLabel"], "");
  EXPECT_EQ(labels["altitudeLabel"], nullptr);
  EXPECT_EQ(labels["userCoordinateLabel"], nullptr);
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

TEST(Replay, ToggleSwitchesTheLayoutAndStoresIt) {
  const auto shown = replayed(R"({"t":0,"suite":{"hasWaypoint":true}}
{"t":1,"tap":"toggleViewButton"}
{"t":1,"show":true}
{"t":2,"tap":"toggleViewButton"})");
  EXPECT_EQ(shown[0]["height"], 78.0);
  EXPECT_EQ(shown[0]["hidden"], json({"compassArrowImageView", "compassRotatingView",
                                      "trackDataView", "waypointDataView"}));
  EXPECT_EQ(shown[0]["button"], 0.0);
  EXPECT_EQ(shown[0]["suite"]["viewHidden"], true);
  EXPECT_EQ(shown[1]["height"], 286.0);
  EXPECT_EQ(shown[1]["hidden"], json::array({"miniTrackDataView"}));
  EXPECT_EQ(shown[1]["suite"]["viewHidden"], false);
}

TEST(Replay, FixesAndHeadingsFillTheRows) {
  const std::string events = R"({"t":1,"fix":{"latitude":0.5,"longitude":0.25,"altitude":123.4}}
{"t":1,"heading":{"trueHeading":90,"magneticHeading":88}}
)";
  const json imperial = lastOf(R"({"t":0,"suite":{"hasWaypoint":true}})"
                               "\n" +
                               events);
  EXPECT_EQ(imperial["labels"]["altitudeLabel"], "405 ft");  // 123.4 x 3.2808399 = 404.86
  EXPECT_EQ(imperial["labels"]["headingLabel"], "90°");
  EXPECT_EQ(imperial["labels"]["userCoordinateLabel"], "0.50000°N, 0.25000°E");
  EXPECT_EQ(imperial["labels"]["etaLabel"], "0 m");  // never, at no speed
  EXPECT_EQ(imperial["tape"], -75.0);                // 90/360 of 300 points, to the left
  EXPECT_EQ(imperial["arrow"]["heading"], 90.0);
  EXPECT_EQ(imperial["accuracy"]["averageHorizontalAccuracy"], 5.0);
  const json metric =
      lastOf(R"({"t":0,"suite":{"units":1,"useMils":true,"compassHeading":1,"coordinateUnits":2}})"
             "\n" +
             events);
  EXPECT_EQ(metric["labels"]["altitudeLabel"], "123 m");
  EXPECT_EQ(metric["labels"]["headingLabel"], "1564 mils");  // 88 x 6400/360 = 1564.4
  EXPECT_EQ(metric["labels"]["userCoordinateLabel"], "0° 30' 0.00'' N, 0° 15' 0.00'' E");
  EXPECT_EQ(metric["segment"], 2);
  EXPECT_EQ(metric["local"]["useMils"], 1);  // an integer: booleans are copied as one
  const json following =
      lastOf(R"({"t":0,"course":true})"
             "\n" +
             events + R"({"t":2,"fix":{"latitude":0,"longitude":0,"course":180}})");
  EXPECT_EQ(following["labels"]["headingLabel"], "180°");
  EXPECT_EQ(following["tape"], -150.0);
}

TEST(Replay, FixesInOneListArriveInOneCall) {
  const json last =
      lastOf(R"({"t":9,"fixes":[{"latitude":1,"longitude":1,"horizontalAccuracy":7,"timestamp":8},)"
             R"({"latitude":2,"longitude":2,"horizontalAccuracy":9}]})");
  EXPECT_EQ(last["labels"]["userCoordinateLabel"], "2.00000°N, 2.00000°E");
  EXPECT_EQ(last["accuracy"]["averageHorizontalAccuracy"], 8.0);
}

TEST(Replay, PickedSegmentLastsUntilTheNextAppearance) {
  const auto shown = replayed(R"({"t":0,"segment":2}
{"t":0,"show":true}
{"t":1,"disappear":true}
{"t":2,"appear":true})");
  // Before the first fix the position is 0/0, whose letters are S and W.
  EXPECT_EQ(shown[0]["labels"]["userCoordinateLabel"], "0° 0' 0.00'' S, 0° 0' 0.00'' W");
  EXPECT_EQ(shown[0]["segment"], 2);
  EXPECT_EQ(shown[0]["local"]["coordinateUnits"], 2);
  EXPECT_EQ(shown[1]["segment"], 0);
}

TEST(Replay, UpdatesReachTheWidgetOnlyWhileTheyRun) {
  const std::string fix = R"({"t":5,"fix":{"latitude":1,"longitude":1}})";
  for (const int status : {0, 1, 2}) {
    const json last = lastOf("{\"t\":0,\"authorization\":" + std::to_string(status) + "}\n" + fix);
    EXPECT_EQ(last["labels"]["altitudeLabel"], nullptr) << status;
  }
  // Granting it later changes nothing before the next appearance.
  EXPECT_EQ(lastOf("{\"t\":0,\"authorization\":0}\n{\"t\":1,\"show\":true}\n"
                   "{\"t\":2,\"authorization\":3}\n" +
                   fix)["labels"]["altitudeLabel"],
            nullptr);
  EXPECT_EQ(lastOf("{\"t\":0,\"authorization\":0}\n{\"t\":1,\"show\":true}\n"
                   "{\"t\":2,\"authorization\":3}\n{\"t\":3,\"appear\":true}\n" +
                   fix)["labels"]["altitudeLabel"],
            "0 ft");
  // Fixes come back with the next appearance, and headings never.
  const json back = lastOf(R"({"t":0,"heading":{"trueHeading":10}}
{"t":1,"disappear":true}
{"t":2,"fix":{"latitude":1,"longitude":1}}
{"t":2,"heading":{"trueHeading":20}}
{"t":3,"appear":true}
{"t":4,"fix":{"latitude":2,"longitude":2}}
{"t":4,"heading":{"trueHeading":30}})");
  EXPECT_EQ(back["labels"]["headingLabel"], "10°");
  EXPECT_EQ(back["labels"]["userCoordinateLabel"], "2.00000°N, 2.00000°E");
  EXPECT_EQ(back["accuracy"]["averageHorizontalAccuracy"], 5.0);
}

TEST(Replay, EachAppearanceAddsATimer) {
  EXPECT_EQ(lastOf(R"({"t":0,"appear":true}
{"t":1,"appear":true}
{"t":2,"disappear":true}
{"t":3,"appear":true})")["timers"],
            3);
}

TEST(Replay, LoadsBeforeTheFirstEventThatNeedsTheWidget) {
  const auto shown = replayed(R"({"t":0,"suite":{"time":60,"units":1}}
{"t":0,"local":{"selectedDatum":"WGS 1984---Global Definition"}}
{"t":10,"placemark":null}
{"t":10.25,"course":false}
{"t":12.25,"appear":true})",
                              3);
  EXPECT_THAT(timesOf(shown), ElementsAre(3, 6, 9, 12, 12.25));
  EXPECT_EQ(shown[3]["height"], 0.0);
  EXPECT_EQ(shown[3]["timers"], 0);
  EXPECT_EQ(shown[3]["labels"]["openLabel"], nullptr);
  EXPECT_EQ(shown[3]["motion"]["averageSpeed"], 0.0);
  EXPECT_EQ(shown[3]["suite"]["time"], 60);
  EXPECT_EQ(shown[4]["height"], 286.0);
  EXPECT_EQ(shown[4]["timers"], 1);
  EXPECT_EQ(shown[4]["labels"]["timeLabel"], "01:00");
  // At the latest before the end.
  EXPECT_EQ(lastOf(R"({"t":0,"suite":{"viewHidden":true}})")["height"], 78.0);
}

TEST(Replay, TimersDueAtAnEventFireBeforeIt) {
  const auto shown = replayed(R"({"t":0,"show":true}
{"t":0.5,"suite":{"time":5}}
{"t":0.5,"show":true}
{"t":0.75,"show":true}
{"t":1,"show":true})");
  EXPECT_EQ(shown[1]["labels"]["timeLabel"], "00:00");
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
{"t":91,"fix":{"latitude":44.5,"longitude":-93.25}}
{"t":91,"show":true}
{"t":92,"fix":{"latitude":44.5,"longitude":-93.25}}
{"t":92,"call":"openAppWithCoordinate"})");
  EXPECT_EQ(shown[0]["lookups"], 0);  // 60 s after the last one, which is not over 60
  EXPECT_EQ(shown[0]["local"]["addressDate"], -30.0);
  EXPECT_EQ(shown[1]["lookups"], 1);
  EXPECT_EQ(shown[1]["labels"]["addressLabel"], "12 Main St, Springfield, IL");
  EXPECT_EQ(shown[1]["suite"]["widgetAddressString"], "12 Main St, Springfield, IL");
  EXPECT_EQ(shown[1]["local"]["addressDate"], 31.0);
  EXPECT_EQ(shown[1]["opened"], json({"wayfell://12_Main_St__Springfield__IL/44.500000/-93.250000",
                                      "wayfell://openFromWidget"}));
  EXPECT_EQ(shown[2]["opened"], json::array());
  EXPECT_EQ(shown[3]["labels"]["addressLabel"], "–, –, –");
  EXPECT_EQ(shown[3]["opened"], json::array({nullptr}));  // a dash may not stand in a URL
}

TEST(Replay, DisplayOfAFormatCanBeCalledFor) {
  const json last = lastOf(R"({"t":0,"fix":{"latitude":1.5,"longitude":-2.25}}
{"t":0,"call":"updateCurrentLocationDisplayWithUnits","index":0})");
  EXPECT_EQ(last["labels"]["userCoordinateLabel"], "1.500000\n-2.250000");
  EXPECT_EQ(last["labels"]["utmZoneLabel"], "");
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
