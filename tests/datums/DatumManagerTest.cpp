#include "datums/DatumManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kWgs84 = "WGS 1984---Global Definition";
constexpr const char* kAdindan = "Adindan---Burkina Faso";
constexpr const char* kTokyo = "Tokyo---Japan";
constexpr const char* kSwiss = "CH1903-LV03---Switzerland";

// Degrees; a hundredth of a millimetre on the ground. Doubles do better, but not by much.
constexpr double kTolerance = 1e-10;

void select(SimulatedHost& host, const char* datum) { host.local.set("selectedDatum", datum); }

// Expected positions from tests/expected/geodesy.py.
TEST(DatumManager, ShiftsToAndFromTheSelectedDatum) {
  const struct {
    const char* datum;
    CLLocationCoordinate2D position, selectedFromDefault, defaultFromSelected;
  } cases[] = {
      {kAdindan, {12.25, -1.5}, {12.2510809295, -1.4998429790}, {12.2489189981, -1.5001570178}},
      {kTokyo, {35.68, 139.76}, {35.6817482569, 139.7632190496}, {35.6782514327, 139.7567805660}},
      // Beyond the antimeridian a longitude goes on.
      {kTokyo,
       {-35.68, 179.999},
       {-35.6802107305, 180.0046005394},
       {-35.6797891222, 179.9933987918}},
      {kSwiss, {46.95, 7.44}, {46.9538114511, 7.4409509647}, {46.9461879885, 7.4390489198}},
      {"Kusaie Astro 1951---Caroline Islands",
       {5.3, 163},
       {5.3000686335, 163.0170372009},
       {5.2999313575, 162.9829634716}},
      {kWgs84, {51.5, -0.125}, {51.5, -0.125}, {51.5, -0.125}},
  };
  SimulatedHost host;
  const DatumManager manager;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.datum);
    select(host, c.datum);
    const auto [latitude, longitude] = c.position;
    EXPECT_NEAR(manager.selectedLatitudeFromDefaultLatAndLong(latitude, longitude),
                c.selectedFromDefault.latitude, kTolerance);
    EXPECT_NEAR(manager.selectedLongitudeFromDefaultLatAndLong(latitude, longitude),
                c.selectedFromDefault.longitude, kTolerance);
    EXPECT_NEAR(manager.defaultLatitudeFromSelectedLatAndLong(latitude, longitude),
                c.defaultFromSelected.latitude, kTolerance);
    EXPECT_NEAR(manager.defaultLongitudeFromSelectedLatAndLong(latitude, longitude),
                c.defaultFromSelected.longitude, kTolerance);
  }
}

// Likewise. The shift is the selected datum's (here Adindan) in each of them; a missing datum is
// the default one.
TEST(DatumManager, OtherDatumsTakeTheSelectedDatumsShift) {
  const struct {
    const char* from;
    std::optional<std::string_view> to;
    double height;
    CLLocationCoordinate2D expected;
  } cases[] = {
      {kSwiss, kTokyo, 1000, {46.95078100605541, 7.440018356015198}},
      {kTokyo, std::nullopt, 0, {46.95137800065913, 7.440018358888356}},
      {kWgs84, kTokyo, 0, {46.94862201989192, 7.439981643339637}},
  };
  SimulatedHost host;
  const DatumManager manager;
  select(host, kAdindan);
  for (const auto& c : cases) {
    EXPECT_NEAR(manager.datumLatitudeConvertLatAndLongHeightFromDatumToDatum(46.95, 7.44, c.height,
                                                                             c.from, c.to),
                c.expected.latitude, kTolerance);
    EXPECT_NEAR(manager.datumLongitudeConvertLatAndLongHeightFromDatumToDatum(46.95, 7.44, c.height,
                                                                              c.from, c.to),
                c.expected.longitude, kTolerance);
  }
}

TEST(DatumManager, AnUnusableSelectionIsRepairedByConversionsOnly) {
  const struct {
    std::optional<PropertyValue> stored;
    bool filledByGetters;
    double axis;  // before any conversion
  } cases[] = {
      {std::nullopt, true, 6378137},
      {"Atlantis---Everywhere", false, 0},
      {"Indian 1960---Vietnam (Near 16\xC2\xB0N)", false, 0},  // a real degree sign
      {PropertyValue::List(), false, 0},
  };
  for (const auto& c : cases) {
    SimulatedHost host;
    DatumManager manager;
    host.local.set("selectedDatum", c.stored);
    EXPECT_EQ(manager.getSelectedAxis(), c.axis);
    EXPECT_EQ(manager.getSelectedFlattening(),
              c.axis > 0 ? 1 / 298.2572236 : std::numeric_limits<double>::infinity());
    const PropertyValue* stored = host.local.find("selectedDatum");
    EXPECT_EQ(*stored, c.filledByGetters ? PropertyValue(kWgs84) : *c.stored);

    EXPECT_NEAR(manager.selectedLatitudeFromDefaultLatAndLong(46.5, 7.25), 46.5, kTolerance);
    EXPECT_EQ(*host.local.find("selectedDatum"), PropertyValue(kWgs84));
    EXPECT_EQ(manager.getSelectedAxis(), 6378137);
  }
}

TEST(DatumManager, AnUnknownDatumGivesNoFinitePosition) {
  SimulatedHost host;
  const DatumManager manager;
  select(host, kAdindan);
  const auto latitude = [&](const char* from, const char* to, double degrees) {
    return manager.datumLatitudeConvertLatAndLongHeightFromDatumToDatum(degrees, 60, 0, from, to);
  };
  const auto longitude = [&](const char* from, const char* to) {
    return manager.datumLongitudeConvertLatAndLongHeightFromDatumToDatum(35, 60, 0, from, to);
  };
  for (const char* unknown : {"Herat North---Afghanistan", "Atlantis---Everywhere"}) {
    EXPECT_FALSE(std::isfinite(latitude(unknown, "default", 35)));
    EXPECT_FALSE(std::isfinite(longitude(unknown, "default")));
    EXPECT_TRUE(std::isinf(latitude("default", unknown, 35)));
    EXPECT_TRUE(std::isnan(latitude("default", unknown, 0)));
    EXPECT_EQ(longitude("default", unknown), longitude("default", "selected"));
  }
}

TEST(DatumManager, GettersFollowTheSettingAndKeepWhatTheyFound) {
  SimulatedHost host;
  DatumManager manager;
  for (const auto& [datum, axis, inverse] :
       {std::tuple(kTokyo, 6377397.155, 299.1528128), std::tuple(kAdindan, 6378249.145, 293.465)}) {
    select(host, datum);
    EXPECT_EQ(manager.getSelectedAxis(), axis);
    EXPECT_EQ(manager.getSelectedFlattening(), 1 / inverse);
    EXPECT_EQ(manager.selectedAxis(), axis);
    EXPECT_EQ(manager.selectedFlattening(), 1 / inverse);
    EXPECT_EQ(manager.getDefaultAxis(), 6378137);
    EXPECT_EQ(manager.defaultAxis(), 6378137);
    EXPECT_EQ(manager.getDefaultFlattening(), 1 / 298.2572236);
    EXPECT_EQ(manager.defaultFlattening(), 1 / 298.2572236);
  }
  host.hasLocal = false;
  EXPECT_NEAR(manager.selectedLongitudeFromDefaultLatAndLong(46.5, 7.25), 7.25, kTolerance);
  EXPECT_EQ(manager.selectedEllipsoid().axis, 6378137);
}

TEST(DatumManager, ZShiftsReadAsZeroUntilTheyAreStored) {
  SimulatedHost host;
  DatumManager manager;
  select(host, kAdindan);
  EXPECT_FALSE(manager.dzDictionary());
  EXPECT_EQ(manager.getDzFromDatum(kAdindan), 0);
  const double without = manager.selectedLatitudeFromDefaultLatAndLong(12.25, -1.5);
  EXPECT_EQ(manager.dzDicionary().at(kAdindan), 218);
  EXPECT_EQ(manager.dzDictionary()->size(), 229U);
  EXPECT_EQ(manager.getDzFromDatum(kAdindan), 218);
  // 218 m along the axis are 213 m southward at this latitude: cos 12.25 x 218 / M.
  EXPECT_NEAR(manager.selectedLatitudeFromDefaultLatAndLong(12.25, -1.5) - without, -0.001926,
              1e-6);
}

TEST(DatumManager, LooksEntriesUp) {
  SimulatedHost host;
  const DatumManager manager;
  EXPECT_EQ(manager.datumAndRegions()[100], "Leigon---Ghana");
  EXPECT_EQ(manager.getEllipsoidFromDatum(kSwiss), "Bessel 1841");
  EXPECT_EQ(manager.getDyFromDatum(kSwiss), 15.056);
  EXPECT_EQ(manager.flatteningDictionary().at("Hough 1960"), 297);
  EXPECT_EQ(manager.getAxisFromDatum("Herat North---Afghanistan"), 0);
  EXPECT_EQ(manager.getEllipsoidFromDatum("Atlantis"), std::nullopt);
  EXPECT_EQ(manager.getDxFromDatum("Atlantis"), 0);
  EXPECT_TRUE(std::isinf(manager.getFlatteningFromDatum("Atlantis")));
}

TEST(DatumManager, TablesAreKeyedByTranslatedNamesAndCanBeReplaced) {
  SimulatedHost host;
  host.strings.translations[kWgs84] = "Monde";
  host.strings.translations[kTokyo] = "Tokio";
  DatumManager manager;
  select(host, "Tokio");
  EXPECT_NEAR(manager.selectedLatitudeFromDefaultLatAndLong(35.68, 139.76), 35.68174825687317,
              kTolerance);
  EXPECT_EQ(manager.getDefaultAxis(), 6378137);
  EXPECT_EQ(manager.getAxisFromDatum(kTokyo), 0);

  select(host, kTokyo);  // the untranslated name is no longer one
  EXPECT_NEAR(manager.selectedLatitudeFromDefaultLatAndLong(35.68, 139.76), 35.68, kTolerance);
  EXPECT_EQ(*host.local.find("selectedDatum"), PropertyValue("Monde"));

  manager.setDxDictionary(DatumManager::NumberDictionary{{"Tokio", 1.5}});
  EXPECT_EQ(manager.getDxFromDatum("Tokio"), 1.5);
  manager.setDxDictionary(std::nullopt);
  EXPECT_EQ(manager.getDxFromDatum("Tokio"), -148);
}

}  // namespace
}  // namespace wayfell
