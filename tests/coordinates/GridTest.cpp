// UTM and MGRS, both ways.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateLookup.h"
#include "coordinates/FindCoordinates.h"
#include "coordinates/GridReference.h"
#include "datums/DatumManager.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kWgs84 = "WGS 1984---Global Definition";
constexpr const char* kAdindan = "Adindan---Burkina Faso";
constexpr const char* kTokyo = "Tokyo---Japan";

constexpr double kMetres = 1e-6;
constexpr double kDegrees = 1e-11;

using Lookup = CoordinateLookup;
using Find = FindCoordinates;
using Convert = ConvertCoordinates;

// Metres from tests/expected/geodesy.py; zones and references read off them by hand.
TEST(Grid, Forward) {
  const struct {
    const char* datum;
    CLLocationCoordinate2D position;
    std::int32_t zone;
    UTMPoint metres;
    const char* mgrs;
  } cases[] = {
      {kWgs84, {46.5, 7.25}, 32, {365720.256845, 5151091.171134}, "32T LS 65720 51091"},
      {kWgs84, {-33.8688, 151.2093}, 56, {334368.631793, 6250948.272514}, "56H LH 34369 50948"},
      {kWgs84, {78.2232, 15.6267}, 33, {514278.715113, 8683355.500806}, "33X WG 14279 83356"},
      {kWgs84, {0, 0}, 31, {166021.549697, 0}, "31N AA 66022 00000"},
      // Half a metre south of the equator the digits are those of 10000000.
      {kWgs84, {-3.5e-6, -77.999}, 18, {166132.978170, 9999999.612611}, "18M SE 66133 00000"},
      {kWgs84, {-84.5, 100}, 47, {510700.246826, 615994.221498}, "47A NG 10700 15994"},
      {kTokyo, {35.68, 139.76}, 54, {388096.294386, 3948962.519185}, "54S UE 88096 48963"},
      {kTokyo, {0, 0}, 30, {833432.270054, 0}, "30N ZF 33432 00000"},
      {kAdindan, {12.25, -1.5}, 30, {663173.379513, 1354649.683042}, "30P XU 63173 54650"},
  };
  SimulatedHost host;
  for (const auto& [datum, position, zone, expected, mgrs] : cases) {
    SCOPED_TRACE(mgrs);
    host.local.set("selectedDatum", datum);
    const auto [latitude, longitude] = position;
    EXPECT_EQ(Lookup::findLongZonesWithLat(longitude, latitude), zone);
    const UTMPoint metres =
        Lookup::findEastingandNorthingWithLatAndLongAndZone(latitude, longitude, zone);
    EXPECT_NEAR(metres.easting, expected.easting, kMetres);
    EXPECT_NEAR(metres.northing, expected.northing, kMetres);
    EXPECT_EQ(Convert::convertDecimalToMGRSAndLong(latitude, longitude), mgrs);
  }
}

TEST(Grid, Zones) {
  const struct {
    double longitude, latitude;
    std::int32_t zone;
  } cases[] = {
      {0, 0, 31},        {0.000001, 0, 31}, {-0.000001, 0, 30}, {6, 0, 32},
      {5.999999, 0, 31}, {180, 0, 61},      {-180, 0, 1},       {179.999, 0, 60},
      {-186.5, 0, 0},    {-173.999, 0, 2},  {5, 60, 31},  // southern Norway: not 32
      {15, 78, 33},                                       // Svalbard: nor anything special here
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    EXPECT_EQ(Lookup::findLongZonesWithLat(c.longitude, c.latitude), c.zone) << c.longitude;
  }
}

TEST(Grid, Bands) {
  SimulatedHost host;
  const auto band = [](double latitude) {
    return Lookup::findLatZonesWithLong(latitude, 10).value_or("none");
  };
  // A point in each band from south to north.
  std::string letters = band(-87);
  for (double latitude = -80; latitude < 80; latitude += 8) letters += band(latitude + 3);
  EXPECT_EQ(letters + band(85), "ACDEFGHJKLMNPQRSTUVWXZ");
  const std::pair<double, const char*> edges[] = {
      {-84.5, "A"},  {-84, "C"},    {-72.001, "C"}, {-72, "D"},    {-0.001, "M"}, {0, "N"},
      {71.999, "W"}, {83.999, "X"}, {84, "Z"},      {89.999, "Z"}, {90, "none"}};
  for (const auto& [latitude, letter] : edges) EXPECT_EQ(band(latitude), letter) << latitude;
  // On Tokyo's datum these latitudes are -84.0036 and 83.9976: only the first edge is that of the
  // position as given.
  host.local.set("selectedDatum", kTokyo);
  EXPECT_EQ(Lookup::findLatZonesWithLong(-83.999, 100), "C");
  EXPECT_EQ(Lookup::findLatZonesWithLong(84, -135.25), "X");

  const std::pair<const char*, int> edgesOfLetters[] = {
      {"A", -90}, {"C", -84}, {"d", -72}, {"mNP", -8}, {"N", 0}, {"x", 72}, {"Z", 84}, {"B", 0}};
  for (const auto& [letter, south] : edgesOfLetters) {
    EXPECT_EQ(Lookup::findLatDegrees(letter), south) << letter;
  }
}

TEST(Grid, Pieces) {
  SimulatedHost host;
  EXPECT_EQ(Find::findUTMZoneWithLatAndLong(46.5, 7.25), "32 N");
  EXPECT_EQ(Find::findMGRSZoneBandsWithLatAndLong(46.5, 7.25), "T LS");
  EXPECT_EQ(Find::findMGRSZoneLettersWithLatAndLong(46.5, 7.25), "TLS");
  EXPECT_EQ(Find::findMGRSZoneForGridWithLatAndLong(46.5, 7.25), "TLS");

  host.strings.translations["%d S"] = "%d Süd";
  EXPECT_EQ(Find::findUTMZoneWithLatAndLong(0, 7.25), "32 Süd");
  host.local.set("utmType", 1);
  EXPECT_EQ(Find::findUTMZoneWithLatAndLong(0, 7.25), "32 N");
  EXPECT_EQ(Find::findUTMZoneWithLatAndLong(-33.8688, 151.2093), "56 H");
  EXPECT_EQ(Find::findUTMZoneWithLatAndLong(90, 3), "31 (null)");
}

// By hand.
TEST(Grid, LettersAndDigitsComeFromTheMetres) {
  const struct {
    std::int32_t zone;
    UTMPoint metres;
    const char* square;
    const char* digits;
  } cases[] = {
      {31, {448251.8, 0}, "DA", "48252 00000"},
      {33, {448251.8, 1900000}, "VV", "48252 00000"},
      {31, {512345.4, 2000000}, "EA", "12345 00000"},
      {60, {7, 1500000}, "RA", "00007 00000"},
      // Rounding may carry the digits, but not the letters, into the next square.
      {31, {499999.5, 9999999.6}, "DV", "00000 00000"},
      // Beside the table there is no letter.
      {31, {-100000, 0}, "A", "00000 00000"},
  };
  SimulatedHost host;
  GridPosition position(0, 0);
  for (const auto& [zone, metres, square, digits] : cases) {
    position.zone = zone;
    position.metres = metres;
    const SquareLetters letters = squareLetters(position);
    EXPECT_EQ(std::string(letters.column) + std::string(letters.row), square);
    EXPECT_EQ(mgrsMetresText(metres.easting) + " " + mgrsMetresText(metres.northing), digits);
  }
}

// From tests/expected/geodesy.py.
TEST(Grid, InverseOfUTM) {
  const auto selected = Convert::convertUTMtoDecimalWithZoneAndEastingAndNorthingHemisphere;
  const auto standard = Convert::convertToDecimalWithZoneHemisphereAndEastingAndNorthing;
  const auto expectNear = [](CLLocationCoordinate2D found, CLLocationCoordinate2D expected) {
    EXPECT_NEAR(found.latitude, expected.latitude, kDegrees);
    EXPECT_NEAR(found.longitude, expected.longitude, kDegrees);
  };
  SimulatedHost host;
  expectNear(selected(32, 365720.3, 5151091.2, 0), {46.499992782844, 7.2500004912712});
  expectNear(selected(56, 334368.6, 6250948.3, 1), {-33.868791141735, 151.20929962777});
  expectNear(selected(33, 700000, 8683355.5, 0), {78.088670955819, 23.712118982963});
  // On another datum the two operations differ by the shift.
  host.local.set("selectedDatum", kTokyo);
  expectNear(selected(54, 388096.3, 3948962.5, 0), {35.681746624412, 139.76321909999});
  expectNear(standard(54, "north", 388096.3, 3948962.5), {35.679998057151, 139.75999932243});
  // Whatever is not "north" is south.
  EXPECT_LT(standard(54, "North", 388096.3, 3948962.5).latitude, -50);
}

TEST(Grid, InverseOfMGRS) {
  const struct {
    const char* datum;
    std::int32_t zone;
    const char* letters;
    double easting, northing;
    CLLocationCoordinate2D expected;
  } cases[] = {
      {kWgs84, 33, "uvp", 12345, 67890, {48.458035143895, 13.814386274733}},
      {kWgs84, 32, "TLS", 65720, 51091, {46.499990923894, 7.2499966411184}},
      {kWgs84, 56, "HLH", 34369, 50948, {-33.868793909057, 151.20930389398}},
      {kWgs84, 18, "MSE", 66133, 0, {-0.90348022573602, -77.999369593667}},
      // Row V of an odd zone: 1900 km up the cycle, through the one-step correction.
      {kWgs84, 31, "NDV", 48252, 12345, {17.295811181656, 2.5130786888805}},
      {kTokyo, 54, "SUE", 88096, 48963, {35.680002530395, 139.75999593800}},
  };
  SimulatedHost host;
  for (const auto& c : cases) {
    host.local.set("selectedDatum", c.datum);
    const auto position = Convert::convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(
        c.zone, c.letters, c.easting, c.northing);
    EXPECT_NEAR(position.latitude, c.expected.latitude, kDegrees) << c.letters;
    EXPECT_NEAR(position.longitude, c.expected.longitude, kDegrees) << c.letters;
  }
  host.local.set("selectedDatum", kWgs84);
  const auto edge = Convert::findNorthingWithLatAndZoneAndZoneLetterAndEasting;
  EXPECT_NEAR(edge(48, 33, "UVP", 12345), 5316972.670628695, kMetres);
  EXPECT_NEAR(edge(-40, 56, "HLH", 34369), 5570429.424333770, kMetres);
  EXPECT_NEAR(edge(72, 32, "XLS", 5000), 7998160.828993956, kMetres);
}

// Over the whole domain references lead back to their position as closely as the series allow (the
// latitude's added fourth-power term alone costs some metres at a zone's edge).
TEST(Grid, EveryPositionHasReferencesThatLeadBack) {
  SimulatedHost host;
  for (const char* datum : {kWgs84, kTokyo, "CH1903-LV03---Switzerland"}) {
    host.local.set("selectedDatum", datum);
    for (double latitude = -79.3; latitude < 84; latitude += 4.37) {
      for (double longitude = -179.7; longitude < 180; longitude += 3.71) {
        SCOPED_TRACE(std::to_string(latitude) + " " + std::to_string(longitude) + " " + datum);
        const auto selected =
            DatumManager::sharedInstance().selectedFromDefault(latitude, longitude);
        const std::int32_t zone = Lookup::findLongZonesWithLat(longitude, latitude);
        ASSERT_TRUE(zone >= 1 && zone <= 60) << zone;
        const auto metres =
            Lookup::findEastingandNorthingWithLatAndLongAndZone(latitude, longitude, zone);
        const auto back = Convert::convertToDecimalWithZoneHemisphereAndEastingAndNorthing(
            zone, selected.latitude < 0 ? "south" : "north", metres.easting, metres.northing);
        ASSERT_NEAR(back.latitude, latitude, 2e-4);
        ASSERT_NEAR(back.longitude, longitude, 2e-4);

        const std::string easting = Find::findMGRSEastingWithLatAndLong(latitude, longitude);
        const std::string northing = Find::findMGRSNorthingWithLatAndLong(latitude, longitude);
        const std::string letters = Find::findMGRSZoneLettersWithLatAndLong(latitude, longitude);
        const auto read = Convert::convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(
            zone, letters, std::atof(easting.c_str()), std::atof(northing.c_str()));
        ASSERT_NEAR(read.latitude, latitude, 2e-4) << letters;
        ASSERT_NEAR(read.longitude, longitude, 2e-4) << letters;
      }
    }
  }
}

// Metres from tests/expected/geodesy.py. The letters by hand: 365720 / 100000 + 8 x 32 is 259,
// less 24 x 10 and 1 is 18, T in the column table; (51 + 5) mod 20 is 16, R in the row table.
TEST(Grid, TheSecondConverterUsesTheTextbookSeries) {
  SimulatedHost host;
  std::int32_t zone = 0;
  std::string band, digraph;
  double easting = 0, northing = 0;
  const auto convert = [&](double latitude, double longitude) {
    return Find::findZoneLatitudeZoneDigraphZoneEastingAndNorthingFromLatitudeAndLongitude(
        zone, band, digraph, easting, northing, latitude, longitude);
  };
  testing::internal::CaptureStderr();
  EXPECT_EQ(convert(46.5, 7.25), "32T TR 365720.259888 5151091.092366");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "letr 259 zone 256 x 365720.259888\nletr 18\n");
  EXPECT_EQ(std::to_string(zone) + band + " " + digraph, "32T TR");
  EXPECT_NEAR(easting, 365720.259888149, kMetres);
  EXPECT_NEAR(northing, 5151091.09236597, kMetres);
  for (const auto& [latitude, longitude] : {std::pair(90.1, 0.0), {0.0, -180.1}, {NAN, 0.0}}) {
    EXPECT_EQ(convert(latitude, longitude), std::nullopt);
  }
}

// Nothing is refused, so nothing may be undefined; the sanitizers watch.
TEST(Grid, AnyInputHasAnAnswer) {
  SimulatedHost host;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double awkward[] = {NAN, kInfinity, -kInfinity, 1e300, -1e300, 1e17, -90, 90, 0};
  for (const char* datum : {kWgs84, kTokyo, "Herat North---Afghanistan"}) {
    host.local.set("selectedDatum", datum);
    for (const double a : awkward) {
      for (const double b : awkward) {
        EXPECT_NE(Convert::convertDecimalToUTMAndLong(a, b), "");
        EXPECT_EQ(Find::findMGRSEastingWithLatAndLong(a, b).size(), 5U);
        EXPECT_NE(Convert::convertDecimalToMGRSAndLong(a, b), "");
        EXPECT_NE(Convert::convertDecimalToDMSAndLongitudeForLatLong(a, b, 1), "");
        for (const std::int32_t zone : {INT32_MIN, -1, 0, INT32_MAX}) {
          Lookup::findEastingandNorthingWithLatAndLongAndZone(a, b, zone);
          for (const char* letters : {"", "U", "UVP", "IIO", "\xC3\xB8"}) {
            Convert::convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(zone, letters,
                                                                                    a, b);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
