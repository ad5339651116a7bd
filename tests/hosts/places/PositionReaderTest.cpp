// Positions as people write them. Degrees were worked out by hand: 58.8 minutes or 58 minutes and
// 48 seconds are 0.98 degrees, 56.4 minutes or 56 minutes and 24 seconds are 0.94.
#include "hosts/places/PositionReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <stdexcept>

#include "hosts/places/PositionText.h"
#include "hosts/places/PositionWords.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using testing::HasSubstr;

constexpr double kRounding = 1e-9;  // degrees

void expectNear(const CLLocationCoordinate2D& position, double latitude, double longitude,
                double tolerance) {
  EXPECT_NEAR(position.latitude, latitude, tolerance);
  EXPECT_NEAR(position.longitude, longitude, tolerance);
}

TEST(PositionReaderTest, ReadsEverySpelling) {
  const SimulatedHost host;
  for (const char* text : {
           "46.98 7.94",
           "46.98,7.94",
           " 46.98 , 7.94 ",
           "46.98; 7.94",
           "+46.98 +7.94",
           "4.698e+1 7.94",
           "46.98N 7.94E",
           "46.98°N, 7.94°E",
           "n46.98 e7.94",
           "7.94E 46.98N",
           "E 7.94; N 46.98",
           "46.98deg 7.94d",
           "46 58.8 7 56.4",
           "46 58.8, 7 56.4",
           "46° 58.8000' N, 7° 56.4000' E",
           "N46 58.8 E7 56.4",
           "46 58.8N 7 56.4E",
           "46°58.8′N 7°56.4′E",
           "7º56.4’E 46˚58.8’N",
           "46:58.8 7:56.4",
           "46d58.8m 7d56.4m",
           "46 58.8' 7 56.4'",
           "46.98° 7° 56.4'",
           "46 58 48 7 56 24",
           "46° 58' 48.00'' N, 7° 56' 24.00'' E",
           "46°58'48\"N 7°56'24\"E",
           "46°58′48″ 7°56′24″",
           "46°58’48”N 7°56’24’’E",
           "46:58:48 N 7:56:24 E",
           "46d58m48s 7d56m24s",
           "46deg 58min 48sec N 7deg 56min 24sec E",
           "46d 58m 48sN 7d 56m 24sE",
           // Decimal commas.
           "46,98 7,94",
           "46,98; 7,94",
           "46,98, 7,94",
           "46,98N 7,94E",
           "46,98°N, 7,94°E",
           "46° 58,8' N 7° 56,4' E",
           "46 58,8 7 56,4",
           "46 58 48,0 7 56 24",
           // No-break and narrow blanks, and marks of direction.
           "46.98\u00A0°\u202FN, 7.94\u2009°\u00A0E",
           "46°\u200E58.8'N 7°\u2066 56.4'\u200FE",
           "geo:46.98,7.94",
           "GEO:46.98,7.940,500.5;crs=WGS84;u=35;name=x",
           "dec   46.98000°N, 7.94000°E",
           "dms   46° 58' 48.00'' N, 7° 56' 24.00'' E",
       }) {
    SCOPED_TRACE(text);
    expectNear(readPosition(text, {}), 46.98, 7.94, kRounding);
  }
  // To a metre, which is what the reference says.
  for (const char* text :
       {"32T MT 19383 03487", "32TMT1938303487", "mgrs  32T MT 19383 03487", "32tmt 19383,03487",
        "32 N 419383 5203487", "32T 419383mE 5203487mN", "utm   32 N 419383.0mE 5203487.0mN"}) {
    SCOPED_TRACE(text);
    expectNear(readPosition(text, {}), 46.98, 7.94, 1e-5);
  }
}

TEST(PositionReaderTest, TellsSignsLettersAndCommasApart) {
  struct Case {
    const char* text;
    double latitude;
    double longitude;
  };
  const Case cases[] = {
      {"-33.9 18.4", -33.9, 18.4},
      {"−33 54 18 24", -33.9, 18.4},
      {"-0 30 -0 15", -0.5, -0.25},
      {"33.9 s, 18.4 w", -33.9, -18.4},
      {"33d54m0s s 18d24m0s w", -33.9, -18.4},
      {"33 54 0 s 18 24 0 e", -33.9, 18.4},
      {"33 54 0S 18 24 0W", -33.9, -18.4},
      {"geo:-33.9,-18.4", -33.9, -18.4},
      {"46, 98", 46, 98},
      {"geo:46.98,7.94?z=5", 46.98, 7.94},
      {"46 58,7 56", 46 + 58 / 60.0, 7 + 56 / 60.0},
      {"46,5 7", 46.5, 7},
      {"46 7,5", 46, 7.5},
      {"33 N 16 E", 33, 16},
      {"46deg 30 N 7deg 15 E", 46.5, 7.25},
      {"47° N, 8° 30' E", 47, 8.5},
      {"45° 59' 60.00'' N, 7° 0' 0.00'' E", 46, 7},
      {"89 59 60.00 179 59 60.00", 90, 180},
      {"-90 -180", -90, -180},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    expectNear(readPosition(c.text, {}), c.latitude, c.longitude, kRounding);
  }
  EXPECT_FALSE(std::signbit(readPosition("-0 -0", {}).latitude));
}

std::string complaintOf(std::string_view text, const PositionNotation& notation = {}) {
  try {
    readPosition(text, notation);
    return "";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST(PositionReaderTest, RefusesWithTheReason) {
  const SimulatedHost host;
  const std::pair<const char*, const char*> cases[] = {
      {"", "a position is missing; write 46.98 7.94"},
      {"46.98", "a longitude is missing"},
      {"46 58 48", "3 numbers"},
      {"46 58 48 7 56 24 1", "\"1\" is too much"},
      {"46.98 7.94 500", "3 numbers"},
      {"46,98,7,94", "\"46,98,7,94\" is no number"},
      {"46,98", "may be decimal or not"},
      {"46.98 7,94", "a decimal point and a decimal comma"},
      {"46.98,,7.94", "comma"},
      {"46.98, 7.94,", "after the last comma"},
      {"46, 7 56", "more numbers than the other"},
      {"46N 58 7E", "more numbers than the other"},
      {"46.98-7.94", "is no number"},
      {"46.98 - 7.94", "\"-\" is no number"},
      {"48.2.3 1", "\"48.2.3\" is no number"},
      {"nan 1", "\"nan\" is no part of a position"},
      {"90.5 0", "latitude 90.5 is beyond 90"},
      {"0 -180.5", "longitude -180.5 is beyond -180"},
      {"90 30 N 0 0 E", "latitude 90.5 is beyond 90"},
      {"46 60 7 30", "60 minutes, not below 60"},
      {"46 98 7 94", "98 minutes, not below 60"},
      {"46 0 60.5 7 0 0", "60.5 seconds"},
      {"46 .98 7 .94", "the minutes of a latitude begin with a point"},
      {"46.5 30 7 15", "fraction of degrees and minutes"},
      {"46 30.5 10 7 15 10", "fraction of minutes and seconds"},
      {"46 30 7", "3 numbers"},
      {"-46N 7E", "latitude with both a sign and a letter"},
      {"46N -7", "one coordinate has a letter, the other has none"},
      {"46N 7", "one coordinate has a letter, the other has none"},
      {"33d54m12s 18d24m12s e", "one coordinate has a letter, the other has none"},
      {"46N 7S", "two latitudes"},
      {"46E 7E", "two longitudes"},
      {"N46 7E", "no number stands after E"},
      {"46NN 7E", "\"NN\" is no part"},
      {"46N N 7E", "not clear what N belongs to"},
      {"46N58 7E56", "more than two coordinates"},
      {"46' 58 7 56", "signs of minutes stand after the degrees"},
      {"46.98°N, 7.94°O", "O is the east in German and the west in French"},
      {"geo:46.98", "latitude and longitude of a geo URI"},
      {"geo:46.98,7.94;crs=nad27", "\"nad27\" is not known"},
      {"geo:91,0", "latitude 91 is beyond 90"},
      {"32T MT 19383 03487 5", "\"5\" is too much"},
      {"32T AT 1 2", "no column A"},
      {"62 N 419383 5203487", "zone 62"},
      {"33 W 500000 4649776", "not in band W"},
      {"utm –", "is no part of a position"},
  };
  for (const auto& [text, complaint] : cases) {
    EXPECT_THAT(complaintOf(text), HasSubstr(complaint)) << text;
  }
}

TEST(PositionReaderTest, ReadsTheLettersOfTheUsersLanguage) {
  const auto with = [](const char* east, const char* west) {
    return PositionNotation{.hemispheres = {.east = east, .west = west}};
  };
  const std::tuple<const char*, PositionNotation, double> cases[] = {
      {"47°N, 8°O", with("O", "W"), 8},
      {"47°N, 8°O", with("E", "O"), -8},
      {"47°N, 8°E", with("O", "W"), 8},
      {"47°N, 8°З", with("В", "З"), -8},
  };
  for (const auto& [text, notation, longitude] : cases) {
    EXPECT_EQ(readPosition(text, notation).longitude, longitude) << text;
  }
  EXPECT_THAT(complaintOf("47°N, 8°W", with("W", "O")), HasSubstr("\"W\" may be either"));
}

CLLocationCoordinate2D somewhere(std::mt19937& random, double greatestLatitude) {
  std::uniform_real_distribution<double> unit(-1, 1);
  const double latitude = greatestLatitude * unit(random);
  return {latitude, kGreatestLongitude * unit(random)};
}

// Half of the last digit that is printed. Degrees and minutes are rounded to six decimals each
// before they are taken apart.
TEST(PositionReaderTest, ReadsBackDegreesWithinTheirLastDigit) {
  const SimulatedHost host;
  constexpr double kSixDecimals = 0.5e-6 * (1 + 1 / 60.0 + 1 / 3600.0);
  constexpr double kResolutions[] = {0.5e-5, 0.5e-4 / 60 + kSixDecimals,
                                     0.5e-2 / 3600 + kSixDecimals};
  std::mt19937 random(1);
  for (int i = 0; i < 3000; ++i) {
    CLLocationCoordinate2D position = somewhere(random, kGreatestLatitude);
    // Every other one just below whole minutes, where seconds may read 60.00.
    if (i % 2 == 0) position.latitude = std::round(position.latitude * 60) / 60 - 1e-6;
    for (std::size_t format = 0; format < std::size(kResolutions); ++format) {
      const std::string text = positionText(position, format).value();
      SCOPED_TRACE(text);
      expectNear(readPosition(text, {}), position.latitude, position.longitude,
                 kResolutions[format] + kRounding);
    }
    expectNear(readPosition(plainPosition(position), {}), position.latitude, position.longitude,
               0.5e-8 + kRounding);
  }
}

// The forward and the inverse series part by up to 8.2 m at the edges of a zone; whole metres and
// the shift there and back add the rest.
TEST(PositionReaderTest, ReadsBackReferencesWithin9Metres) {
  std::mt19937 random(1);
  for (const char* datum : {"WGS 1984---Global Definition", "Adindan---Sudan", "Tokyo---Japan"}) {
    for (const int utmType : {0, 1}) {
      SimulatedHost host;
      host.local.set("selectedDatum", PropertyValue(datum));
      host.local.set("utmType", PropertyValue(utmType));
      const PositionNotation notation = {.utmLetters = utmType == 1 ? UtmLetters::bands
                                                                    : UtmLetters::hemispheres};
      for (int i = 0; i < 2000; ++i) {
        CLLocation start;
        start.coordinate = somewhere(random, 83.9);
        for (const std::size_t format : {3U, 4U}) {
          const std::string text = positionText(start.coordinate, format).value();
          CLLocation end;
          end.coordinate = readPosition(text, notation);
          EXPECT_LT(start.distanceFromLocation(end), 9) << text;
        }
      }
    }
  }
}

using Words = std::vector<std::string>;

// Latitudes of what the words are, or the complaint.
template <class Read>
std::string latitudes(Read read, const Words& words) {
  const SimulatedHost host;
  try {
    std::string text;
    for (const auto& position : read(words)) {
      text += std::to_string(std::lround(position.latitude * 100)) + ' ';
    }
    return text;
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST(PositionWordsTest, PutsWordsTogetherInOneWayOnly) {
  const auto one = [](const Words& words) { return std::vector{onePosition(words, {})}; };
  const auto two = [](const Words& words) {
    const auto [first, second] = twoPositions(words, {});
    return std::vector{first, second};
  };
  const auto all = [](const Words& words) { return allPositions(words, {}); };
  struct Case {
    Words words;
    const char* ofOne;
    const char* ofTwo;
    const char* ofAll;
  };
  const Case cases[] = {
      {{"46.98", "7.94"}, "4698 ", "this is one position", "4698 "},
      {{"46,98", "7,94"}, "4698 ", "this is one position", "4698 "},
      {{"46,98", "47.5,8"},
       "\"46,98\": a comma between whole numbers",
       "\"46,98\": a comma",
       "\"46,98\": a comma"},
      {{"46", "30", "7", "15"}, "4650 ", "4600 700 ", "may be one position or 2"},
      {{"46.5", "7.5", "47", "8"}, "fraction of degrees", "4650 4700 ", "4650 4700 "},
      {{"46 30 7 15", "47.5 8"}, "these are 2 positions", "4650 4750 ", "4650 4750 "},
      {{"1 2", "3 4", "5 6"}, "these are 3 positions", "these are 3 positions", "100 300 500 "},
      {{"1 2", "3 4", "5 6", "95 8"},
       "\"95 8\": latitude 95",
       "\"95 8\": latitude 95",
       "\"95 8\": latitude 95"},
      {{"46", "30", "N", "7", "0", "E"}, "4650 ", "this is one position", "4650 "},
      {{"46", "30", "N", "7", "0", "E", "47N", "8E"},
       "more than two coordinates",
       "4650 4700 ",
       "more than two coordinates"},
      {{"46", "30", "7", "15", "47", "8"}, "4650 ", "several ways", "may be one position or 3"},
      {{"91", "0", "1", "2"}, "latitude 91", "latitude 91", "latitude 91"},
      {{"32T", "MT", "19383", "03487"}, "4698 ", "this is one position", "4698 "},
      {{"46.98°N,", "7.94°E"}, "4698 ", "this is one position", "4698 "},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(latitudes(one, c.words), HasSubstr(c.ofOne)) << c.words.front();
    EXPECT_THAT(latitudes(two, c.words), HasSubstr(c.ofTwo)) << c.words.front();
    EXPECT_THAT(latitudes(all, c.words), HasSubstr(c.ofAll)) << c.words.front();
  }
}

}  // namespace
}  // namespace wayfell
