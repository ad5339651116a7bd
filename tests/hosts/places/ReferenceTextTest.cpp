// Positions of references come from Krüger's series to the fourth order (as in Karney 2011),
// evaluated with 30 digits on the WGS 84 ellipsoid; the system's own formulas stay within 9 m of
// each other, so they must agree to 0.0001 degrees. Letters and digits were worked out by hand from
// the tables of 100 km squares.
#include "hosts/places/ReferenceText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "hosts/places/PositionText.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr double kTolerance = 1e-4;  // degrees, about 11 m

template <class Read>
std::string complaintOf(std::string_view text, Read read) {
  TextScanner scanner(text);
  try {
    read(scanner);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "none; left is \"" + std::string(scanner.rest()) + '"';
}

TEST(ReferenceTextTest, ReadsUtm) {
  const SimulatedHost host;
  constexpr auto kHemispheres = UtmLetters::hemispheres;
  constexpr auto kBands = UtmLetters::bands;
  struct Case {
    std::string_view text;
    UtmLetters letters;
    double latitude;
    double longitude;
  };
  const Case cases[] = {
      {"33 N 500000 4649776", kHemispheres, 41.999998, 15},
      {"33n 500000.0mE 4649776.0mN", kHemispheres, 41.999998, 15},
      {"33N500000mE4649776mN", kHemispheres, 41.999998, 15},
      {" 33  North\t500000 m E , 4649776 m N ", kHemispheres, 41.999998, 15},
      {"33 t 500000 4649776", kHemispheres, 41.999998, 15},
      // S is the south, or the band from 32 to 40 degrees north.
      {"33 S 500000 4649776", kHemispheres, -48.3052104, 15},
      {"33 south 500000 4649776", kBands, -48.3052104, 15},
      {"33 S 500000 4649776", kBands, 41.999998, 15},
      {"33 N 500000 4649776", kBands, 41.999998, 15},
      {"33 G 500000 4649776", kHemispheres, -48.3052104, 15},
      {"31 N 448251.8mE 5411932.6mN", kHemispheres, 48.8581993, 2.29450008},
      {"34 S 259583 6245888", kHemispheres, -33.9000004, 18.3999976},
      {"60 N 600000 1000000", kHemispheres, 9.04543326, 177.90988},
      {"1 L 400000 9000000", kHemispheres, -9.04543326, -177.90988},
      {"30 N 699375 0", kHemispheres, 0, -1.20856113},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    TextScanner scanner(c.text);
    const auto position = positionOf(takeUtmReference(scanner, c.letters));
    EXPECT_NEAR(position.latitude, c.latitude, kTolerance);
    EXPECT_NEAR(position.longitude, c.longitude, kTolerance);
    EXPECT_TRUE(scanner.atEnd());
  }
}

TEST(ReferenceTextTest, ReadsMgrs) {
  const SimulatedHost host;
  struct Case {
    std::string_view text;
    double latitude;
    double longitude;
  };
  const Case cases[] = {
      {"33U VP 12345 67890", 48.4580368, 13.8143863},  // 412345 5367890
      {"33UVP1234567890", 48.4580368, 13.8143863},
      {"33uvp 12345 67890", 48.4580368, 13.8143863},
      {"33 U VP 12345,67890", 48.4580368, 13.8143863},
      {"33 UVP 12345 67890", 48.4580368, 13.8143863},
      {"33U VP 12 67", 48.4499835, 13.809908},  // 412000 5367000
      {"33UVP1267", 48.4499835, 13.809908},
      {"33U VP 1 6", 48.3867392, 13.784369},  // 410000 5360000
      {"34H BH 59583 45888", -33.9000004, 18.3999976},
      {"33U XP 02065 40354", 48.208201, 16.3737999},  // 602065.2 5340353.7
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    TextScanner scanner(c.text);
    const auto position = positionOf(takeMgrsReference(scanner));
    EXPECT_NEAR(position.latitude, c.latitude, kTolerance);
    EXPECT_NEAR(position.longitude, c.longitude, kTolerance);
    EXPECT_TRUE(scanner.atEnd());
  }
}

TEST(ReferenceTextTest, ReadsOneAfterAnother) {
  TextScanner scanner("33UVP12 33UVP34 33U VP 56 78 33U VP 5 6");
  double sum = 0;
  for (int i = 0; i < 4; ++i) {
    const auto reference = takeMgrsReference(scanner);
    sum += reference.easting + reference.northing / 100000;
  }
  // By hand: 10000 + 30000 + 56000 + 50000, and 20000 + 40000 + 78000 + 60000 northward.
  EXPECT_NEAR(sum, 146001.98, 1e-6);
  EXPECT_TRUE(scanner.atEnd());
}

TEST(ReferenceTextTest, RefusesWhatIsNoReference) {
  const SimulatedHost host;
  const auto mgrs = [](TextScanner& scanner) { positionOf(takeMgrsReference(scanner)); };
  const auto utm = [](TextScanner& scanner) {
    positionOf(takeUtmReference(scanner, UtmLetters::hemispheres));
  };
  using testing::HasSubstr;
  EXPECT_THAT(complaintOf("", utm), HasSubstr("zone is missing"));
  EXPECT_THAT(complaintOf("N 500000 1", utm), HasSubstr("\"N\" does not begin with a zone"));
  EXPECT_THAT(complaintOf("62 N 500000 1", utm), HasSubstr("zone 62"));
  EXPECT_THAT(complaintOf("99999999999 N 500000 1", utm), HasSubstr("zone 99999999999"));
  EXPECT_THAT(complaintOf("33 500000 1", utm), HasSubstr("neither a hemisphere nor a band"));
  EXPECT_THAT(complaintOf("33 I 500000 1", utm), HasSubstr("no latitude band I"));
  EXPECT_THAT(complaintOf("33 N -5 1", utm), HasSubstr("\"-5\" is no easting"));
  EXPECT_THAT(complaintOf("33 N 500000", utm), HasSubstr("northing is missing"));
  EXPECT_THAT(complaintOf("33 N 500000mN 1", utm), HasSubstr("\"MN\" after the easting"));
  EXPECT_THAT(complaintOf("33 N 500000 10000001", utm), HasSubstr("northing 10000001"));
  EXPECT_THAT(complaintOf("33U", mgrs), HasSubstr("two letters of a square"));
  EXPECT_THAT(complaintOf("33B VP 1 6", mgrs), HasSubstr("no latitude band B"));
  EXPECT_THAT(complaintOf("33U AP 1 6", mgrs), HasSubstr("no column A in zone 33, only S to Z"));
  EXPECT_THAT(complaintOf("33U VW 1 6", mgrs), HasSubstr("no row W"));
  EXPECT_THAT(complaintOf("33U VP", mgrs), HasSubstr("digits"));
  EXPECT_THAT(complaintOf("33U VP 123", mgrs), HasSubstr("odd number of digits"));
  EXPECT_THAT(complaintOf("33U VP 12 345", mgrs), HasSubstr("differ"));
  EXPECT_THAT(complaintOf("33U VP 123456 123456", mgrs), HasSubstr("more than 10 digits"));
  // Row A of this cycle would be 6 million metres north, beyond the band's end at 56 degrees.
  EXPECT_THAT(complaintOf("33U VD 0 0", mgrs), HasSubstr("square VD of zone 33 is not in band U"));
}

// The forward and the inverse series part by up to 8.2 m at the edges of a zone; whole metres and
// the shift there and back add the rest.
TEST(ReferenceTextTest, WhatIsWrittenReadsBackWithin9Metres) {
  for (const char* datum : {"WGS 1984---Global Definition", "Adindan---Sudan", "Tokyo---Japan"}) {
    for (const int utmType : {0, 1}) {
      SimulatedHost host;
      host.local.set("selectedDatum", PropertyValue(datum));
      host.local.set("utmType", PropertyValue(utmType));
      for (double latitude = -83.41; latitude < 84; latitude += 3.13) {
        for (double longitude = -179.37; longitude < 180; longitude += 4.73) {
          CLLocation start;
          start.coordinate = {latitude, longitude};
          const auto expectNear = [&start](const CLLocationCoordinate2D& read) {
            CLLocation end;
            end.coordinate = read;
            EXPECT_LT(start.distanceFromLocation(end), 9) << read.latitude << ' ' << read.longitude;
          };
          const std::string utm = positionText(start.coordinate, 4).value();
          TextScanner utmScanner(utm);
          expectNear(positionOf(takeUtmReference(
              utmScanner, utmType == 1 ? UtmLetters::bands : UtmLetters::hemispheres)));
          const std::string mgrs = positionText(start.coordinate, 3).value();
          TextScanner mgrsScanner(mgrs);
          expectNear(positionOf(takeMgrsReference(mgrsScanner)));
        }
      }
    }
  }
}

TEST(PositionTextTest, TakesDecimalDegrees) {
  struct Case {
    std::string_view text;
    double latitude;
    double longitude;
  };
  const Case cases[] = {
      {"48.5 16.25", 48.5, 16.25},   {"-33.9,18.4", -33.9, 18.4}, {" +1 ,\t-2 ", 1, -2},
      {"33.9S 18.4 e", -33.9, 18.4}, {"1e-1 .5", 0.1, 0.5},       {"48.5°N, 16.25°W", 48.5, -16.25},
      {"-90 180", -90, 180},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    TextScanner scanner(c.text);
    EXPECT_EQ(takePosition(scanner), (CLLocationCoordinate2D{c.latitude, c.longitude}));
    EXPECT_TRUE(scanner.atEnd());
  }
}

}  // namespace
}  // namespace wayfell
