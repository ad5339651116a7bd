#include "hosts/window/SourceChoice.h"

#include <gtest/gtest.h>

#include <vector>

namespace wayfell {
namespace {

TEST(SourceChoice, IsReadAsPeopleWriteIt) {
  struct Case {
    const char* text;
    std::optional<SourceChoice> expected;
  };
  const std::vector<Case> cases = {
      {"auto", source::Automatic{}},
      {"gpsd", source::Gpsd{}},
      {"gpsd=pi:2948", source::Gpsd{{"pi", "2948"}}},
      {"gpsd=[::1]:2948", source::Gpsd{{"::1", "2948"}}},
      {"geoclue", source::Geoclue{}},
      {"nmea=/dev/ttyUSB0", source::NmeaDevice{"/dev/ttyUSB0"}},
      {"nmea=./gps", source::NmeaDevice{"./gps"}},
      {"nmea=boat:10110", source::NmeaServer{"boat", 10110}},
      {"nmea=[::1]:10110", source::NmeaServer{"::1", 10110}},
      {"replay=-", source::Replay{"-"}},
      {"replay=a=b.gpx", source::Replay{"a=b.gpx"}},
      {"demo", source::Demo{}},
      {"", std::nullopt},
      {"gps", std::nullopt},
      {"gpsd=", std::nullopt},
      {"gpsd=pi:0", std::nullopt},
      {"nmea", std::nullopt},
      {"nmea=boat", std::nullopt},  // no port is usual
      {"nmea=:10110", std::nullopt},
      {"nmea=boat:", std::nullopt},
      {"nmea=boat:65536", std::nullopt},
      {"replay", std::nullopt},
      {"demo=1", std::nullopt},
      {"geoclue=1", std::nullopt},
  };
  for (const Case& each : cases) EXPECT_EQ(sourceChoiceOf(each.text), each.expected) << each.text;
}

}  // namespace
}  // namespace wayfell
