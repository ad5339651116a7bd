// What every host opens (gpsd, recordings) is among the cases too: one vocabulary.
#include "hosts/window/WindowSources.h"

#include <gtest/gtest.h>

#include <vector>

namespace wayfell {
namespace {

TEST(WindowSources, AreReadAsPeopleWriteThem) {
  struct Case {
    const char* text;
    std::optional<SourceChoice> expected;
  };
  const Sources sources = windowSources();
  const std::vector<Case> cases = {
      {"auto", SourceChoice{"auto"}},
      {"gpsd=[::1]:2948", SourceChoice{"gpsd", "[::1]:2948"}},
      {"geoclue", SourceChoice{"geoclue"}},
      {"nmea=/dev/ttyUSB0", SourceChoice{"nmea", "/dev/ttyUSB0"}},
      {"nmea=./gps", SourceChoice{"nmea", "./gps"}},
      {"nmea=boat:10110", SourceChoice{"nmea", "boat:10110"}},
      {"nmea=[::1]:10110", SourceChoice{"nmea", "[::1]:10110"}},
      {"replay=a=b.gpx", SourceChoice{"replay", "a=b.gpx"}},
      {"demo", SourceChoice{"demo"}},
      {"gps", std::nullopt},
      {"gpsd=pi:0", std::nullopt},
      {"nmea", std::nullopt},
      {"nmea=boat", std::nullopt},  // no port is usual
      {"nmea=:10110", std::nullopt},
      {"nmea=boat:", std::nullopt},
      {"nmea=boat:65536", std::nullopt},
      {"demo=1", std::nullopt},
      {"geoclue=1", std::nullopt},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(sources.choiceOf(each.text), each.expected) << each.text;
  }
}

}  // namespace
}  // namespace wayfell
