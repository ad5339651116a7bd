// What a search must find was looked up in the list of names by hand.
#include "hosts/places/DatumSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "datums/DatumManager.h"
#include "hosts/places/DatumNote.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> namesOf(const std::vector<std::size_t>& numbers) {
  std::vector<std::string> names;
  for (const std::size_t number : numbers) {
    names.push_back(DatumManager::sharedInstance().datumAndRegions().at(number));
  }
  return names;
}

class DatumSearchTest : public testing::Test {
 protected:
  std::vector<std::string> found(std::string_view text) const { return namesOf(search.find(text)); }

  SimulatedHost host;
  DatumSearch search;
};

TEST_F(DatumSearchTest, ForgivesCaseBlanksHyphensAndDiacritics) {
  for (const char* text : {"hu-tzu-shan", "HU TZU SHAN", "hutzushan", "taiwan hu"}) {
    EXPECT_THAT(found(text), ElementsAre("Hu-Tzu-Shan---Taiwan")) << text;
  }
  for (const char* text : {"16øN", "16on", "near 16°N", "16ØN vietnam"}) {
    EXPECT_THAT(found(text), ElementsAre("Indian 1960---Vietnam (Near 16øN)")) << text;
  }
  EXPECT_THAT(found("réunion"), ElementsAre("Reunion---Mascarene Islands"));
  EXPECT_THAT(found("mporaloko"), ElementsAre("M'Poraloko---Gabon"));
}

TEST_F(DatumSearchTest, AllWordsMustBeginAWord) {
  EXPECT_THAT(found("oman"), ElementsAre("Nahrwan---Oman (Masirah Island)", "Oman---Oman"));
  EXPECT_THAT(found("japan okinawa"), ElementsAre("Tokyo---MEAN FOR Japan; South Korea; Okinawa"));
  EXPECT_THAT(found("japan sudan"), IsEmpty());
  EXPECT_THAT(found("日本"), IsEmpty());
  EXPECT_THAT(found(""), SizeIs(229));
  EXPECT_THAT(found("wgs84"), ElementsAre("WGS 1984---Global Definition", "SVY21---Singapore TM"));
}

TEST_F(DatumSearchTest, NamesOneDatum) {
  struct Case {
    const char* text;
    std::vector<std::size_t> numbers;  // rows of the catalogue, from 0
  };
  const Case cases[] = {{"Adindan---Sudan", {7}},
                        {"adindan sudan", {7}},
                        {"Indian 1960---Vietnam (Near 16oN)", {87}},
                        {"Adindan", {1, 2, 3, 4, 5, 6, 7}},
                        {"cape", {42}},
                        {"wgs84", {0}},
                        {"agd66", {31}},
                        {"ETRS89", {}},
                        {"", {}}};
  for (const Case& c : cases) EXPECT_EQ(search.named(c.text), c.numbers) << c.text;
  // As many regions as the catalogue's lines have with these names.
  EXPECT_THAT(search.named("ED50"), SizeIs(16));
  EXPECT_THAT(search.named("NAD27"), SizeIs(20));
  EXPECT_THAT(search.named("s42"), SizeIs(8));
  EXPECT_THAT(found("nad83 hawaii"), ElementsAre("North American 1983---Hawaii"));
}

// The catalogue's dz of these: 685, -161.76, 0, and 114 of one without an ellipsoid.
TEST_F(DatumSearchTest, NotesWhatShiftsLeaveOut) {
  EXPECT_EQ(datumNote("Tokyo---Japan"), "Tokyo---Japan: shifted without dz, up to 685 m off");
  EXPECT_THAT(datumNote("Hong Kong 1980---Hong Kong"), testing::HasSubstr("up to 162 m"));
  for (const char* name : {"GDA94---Australia", "Herat North---Afghanistan", "", "unknown"}) {
    EXPECT_EQ(datumNote(name), "") << name;
  }
}

TEST_F(DatumSearchTest, SuggestsNearNames) {
  const auto hints = search.hints("tokio Japan xyzzy");
  ASSERT_THAT(hints, SizeIs(2));
  EXPECT_EQ(hints[0].word, "tokio");
  EXPECT_THAT(hints[0].near, ElementsAre("Tokyo"));
  EXPECT_THAT(hints[1].near, IsEmpty());
  EXPECT_THAT(namesOf(search.near("Adindan---Sudam")),
              ElementsAre("Adindan---MEAN FOR Ethiopia; Sudan", "Adindan---Sudan"));
  EXPECT_THAT(namesOf(search.near("tokio xyzzy japan")),
              ElementsAre("Tokyo---Japan", "Tokyo---MEAN FOR Japan; South Korea; Okinawa"));
  EXPECT_THAT(search.near("xyzzy"), IsEmpty());
}

}  // namespace
}  // namespace wayfell
