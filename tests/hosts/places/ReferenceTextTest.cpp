// Positions of references come from Krüger's series to the fourth order (as in Karney 2011),
// evaluated with 30 digits on the WGS 84 ellipsoid; the system's own formulas stay within 9 m of
// each other, so they must agree to 0.0001 degrees. Letters and digits were worked out by hand from
// the tables of 100 km squares.
#include "hosts/places/ReferenceText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr double kTolerance = 1e-4;  // degrees, about 11 m

CLLocationCoordinate2D utm(TextScanner& scanner) {
  return positionOf(takeUtmReference(scanner, UtmLetters::hemispheres));
}
CLLocationCoordinate2D utmOfBands(TextScanner& scanner) {
  return positionOf(takeUtmReference(scanner, UtmLetters::bands));
}
CLLocationCoordinate2D mgrs(TextScanner& scanner) { return positionOf(takeMgrsReference(scanner)); }
using Read = CLLocationCoordinate2D (*)(TextScanner& scanner);

TEST(ReferenceTextTest, ReadsUtmAndMgrs) {
  const SimulatedHost host;
  struct Case {
    std::string_view text;
    Read read;
    double latitude;
    double longitude;
  };
  const Case cases[] = {
      {"33n 500000.0mE 4649776.0mN", utm, 41.999998, 15},
      {"33N500000mE4649776mN", utm, 41.999998, 15},
      {" 33  North\t500000 m E , 4649776 m N ", utm, 41.999998, 15},
      {"33 t 500000 4649776", utm, 41.999998, 15},
      // S is the south, or the band from 32 to 40 degrees north.
      {"33 S 500000 4649776", utm, -48.3052104, 15},
      {"33 south 500000 4649776", utmOfBands, -48.3052104, 15},
      {"33 S 500000 4000000", utmOfBands, 36.1447181, 15},
      {"33 F 500000 4649776", utm, -48.3052104, 15},
      {"31 N 448251.8mE 5411932.6mN", utm, 48.8581993, 2.29450008},
      {"34 S 259583 6245888", utm, -33.9000004, 18.3999976},
      {"60 N 600000 1000000", utm, 9.04543326, 177.90988},
      {"1 L 400000 9000000", utm, -9.04543326, -177.90988},
      {"33UVP1234567890", mgrs, 48.4580368, 13.8143863},  // 412345 5367890
      {"33uvp 12345 67890", mgrs, 48.4580368, 13.8143863},
      {"33 U VP 12345,67890", mgrs, 48.4580368, 13.8143863},
      {"33U VP 12 67", mgrs, 48.4499835, 13.809908},  // 412000 5367000
      {"33U VP 1 6", mgrs, 48.3867392, 13.784369},    // 410000 5360000
      {"34H BH 59583 45888", mgrs, -33.9000004, 18.3999976},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    TextScanner scanner(c.text);
    const auto position = c.read(scanner);
    EXPECT_NEAR(position.latitude, c.latitude, kTolerance);
    EXPECT_NEAR(position.longitude, c.longitude, kTolerance);
    EXPECT_TRUE(scanner.atEnd());
  }
}

TEST(ReferenceTextTest, RefusesWhatIsNoReference) {
  const SimulatedHost host;
  const std::tuple<std::string_view, Read, const char*> cases[] = {
      {"", utm, "zone is missing"},
      {"N 500000 1", utm, "\"N\" does not begin with a zone"},
      {"62 N 500000 1", utm, "zone 62"},
      {"99999999999 N 500000 1", utm, "zone 99999999999"},
      {"33 500000 1", utm, "neither a hemisphere nor a band"},
      {"33 I 500000 1", utm, "no latitude band I"},
      {"33 W 500000 4649776", utm, "northing 4649776 is not in band W"},
      {"33 S 500000 4649776", utmOfBands, "northing 4649776 is not in band S"},
      {"33 N -5 1", utm, "\"-5\" is no easting"},
      {"33 N 500000", utm, "northing is missing"},
      {"33 N 500000mN 1", utm, "\"MN\" after the easting"},
      {"33 N 500000 10000001", utm, "northing 10000001"},
      {"33U", mgrs, "two letters of a square"},
      {"33U AP 1 6", mgrs, "no column A in zone 33, only S to Z"},
      {"33U VW 1 6", mgrs, "no row W"},
      {"33U VP 123", mgrs, "odd number of digits"},
      {"33U VP 12 345", mgrs, "differ"},
      {"33U VP 123456 123456", mgrs, "more than 10 digits"},
      // Row A of this cycle would be 6 million metres north, beyond the band's end at 56 degrees.
      {"33U VD 0 0", mgrs, "square VD of zone 33 is not in band U"},
  };
  for (const auto& [text, read, complaint] : cases) {
    TextScanner scanner(text);
    try {
      read(scanner);
      ADD_FAILURE() << text;
    } catch (const std::invalid_argument& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(complaint));
    }
  }
}

}  // namespace
}  // namespace wayfell
