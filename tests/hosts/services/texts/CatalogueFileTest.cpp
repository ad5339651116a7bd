// Offsets follow from the layout of catalogueBytes(); what is wrong with each file was put there by
// hand.
#include "hosts/services/texts/CatalogueFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <random>
#include <stdexcept>

#include "CatalogueBytes.h"
#include "hosts/services/texts/GettextTable.h"

namespace wayfell {
namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAre;

const Texts kTexts = {{"Altitude", "Höhe"}, {"%d m", "%d min"}};

// The third string of each table is "Altitude", as "" and "%d m" come before it.
constexpr std::size_t kAltitudeKey = 28 + 2 * 8;
constexpr std::size_t kAltitudeText = kAltitudeKey + 3 * 8;

void setWord(std::string& bytes, std::size_t offset, std::uint32_t word) {
  bytes.replace(offset, 4, wordBytes(word, false));
}

std::string reasonToRefuse(const std::string& bytes) {
  try {
    keysOfSoundCatalogue(bytes);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(CatalogueFile, GivesTheKeysInEitherByteOrder) {
  for (const bool bigEndian : {false, true}) {
    EXPECT_THAT(keysOfSoundCatalogue(catalogueBytes(kTexts, bigEndian)),
                UnorderedElementsAre("Altitude", "%d m"));
  }
  const std::string plural("%d m\0%d ms", 10);
  EXPECT_THAT(keysOfSoundCatalogue(catalogueBytes({{plural, "%d min"}})),
              UnorderedElementsAre("%d m"));
}

TEST(CatalogueFile, RefusesWhatLies) {
  struct Case {
    std::function<void(std::string&)> spoil;
    const char* reason;
  };
  const Case cases[] = {
      {[](std::string& b) { b.clear(); }, "too short"},
      {[](std::string& b) { b.resize(27); }, "too short"},
      {[](std::string& b) { b[0] = 'x'; }, "not a compiled catalogue"},
      {[](std::string& b) { setWord(b, 4, 1); }, "revision"},
      {[](std::string& b) { setWord(b, 8, 0xFFFFFFFF); }, "table of keys lies outside"},
      {[](std::string& b) { setWord(b, 8, 0x20000000); }, "table of keys lies outside"},
      {[](std::string& b) { setWord(b, 8, 0); }, "no header"},
      {[](std::string& b) { setWord(b, 12, 0xFFFFFFF0); }, "table of keys lies outside"},
      {[](std::string& b) { setWord(b, 12, 29); }, "not aligned"},
      {[](std::string& b) { setWord(b, 16, 0x7FFFFFFC); }, "table of texts lies outside"},
      {[](std::string& b) { setWord(b, 20, 3), setWord(b, 24, 0x1000); }, "hashes lies outside"},
      {[](std::string& b) { setWord(b, 20, 0x40000001), setWord(b, 24, 0); },
       "hashes lies outside"},
      {[](std::string& b) { setWord(b, kAltitudeKey, 0xFFFFFFFF); }, "string lies outside"},
      {[](std::string& b) { setWord(b, kAltitudeKey + 4, 0xFFFFFFFF); }, "string lies outside"},
      {[](std::string& b) { setWord(b, kAltitudeText, 3); }, "does not end"},
      {[](std::string& b) { b.back() = 'x'; }, "does not end"},
      {[](std::string& b) { b.replace(b.find("UTF-8"), 5, "UTF-7"); }, "not in UTF-8"},
      {[](std::string& b) { b.replace(b.find("charset"), 7, "CHARSET"); }, "no character set"},
  };
  ASSERT_EQ(reasonToRefuse(catalogueBytes(kTexts)), "");
  for (const Case& c : cases) {
    std::string bytes = catalogueBytes(kTexts);
    c.spoil(bytes);
    EXPECT_THAT(reasonToRefuse(bytes), HasSubstr(c.reason));
  }
  EXPECT_THAT(reasonToRefuse(catalogueBytes({{"", "charset=UTF-8\n" + std::string(5000, '!')}})),
              HasSubstr("header is too long"));
}

// gettext steps on from a place by less than the table's size until it finds an empty one. In a
// table of 4 places it would go to and fro between two; a full one has no end.
TEST(CatalogueFile, RefusesHashesThatGettextWouldSearchForever) {
  const auto withHashes = [](const std::vector<std::uint32_t>& places) {
    std::string bytes = catalogueBytes(kTexts);
    while (bytes.size() % 4 != 0) bytes += '\0';
    setWord(bytes, 20, static_cast<std::uint32_t>(places.size()));
    setWord(bytes, 24, static_cast<std::uint32_t>(bytes.size()));
    for (const std::uint32_t place : places) bytes += wordBytes(place, false);
    return bytes;
  };
  EXPECT_EQ(reasonToRefuse(withHashes({1, 2, 3, 0, 0})), "");
  EXPECT_THAT(reasonToRefuse(withHashes({1, 2, 3, 1, 2})), HasSubstr("forever"));
  EXPECT_THAT(reasonToRefuse(withHashes({1, 0, 3, 0})), HasSubstr("forever"));
  EXPECT_THAT(reasonToRefuse(withHashes({1, 2, 4, 0, 0})), HasSubstr("not there"));
}

TEST(CatalogueFile, RefusesStringsThatShareBytes) {
  std::string bytes = catalogueBytes({{"A", std::string(1000, 'x')}, {"B", ""}});
  const std::size_t textOfA = 28 + 3 * 8 + 8;
  bytes.replace(textOfA + 8, 8, bytes.substr(textOfA, 8));
  EXPECT_THAT(reasonToRefuse(bytes), HasSubstr("overlap"));
}

TEST(CatalogueFile, ReadsOnlyFilesThatCanBeCatalogues) {
  const TemporaryFolder folder;
  write(folder.path / "some.mo", catalogueBytes(kTexts));
  EXPECT_EQ(bytesOfCatalogue(folder.path / "some.mo"), catalogueBytes(kTexts));
  std::filesystem::resize_file(folder.path / "some.mo", (4U << 20U) + 1);
  EXPECT_THROW(bytesOfCatalogue(folder.path / "some.mo"), std::runtime_error);
  EXPECT_THROW(bytesOfCatalogue(folder.path), std::runtime_error);
  EXPECT_THROW(bytesOfCatalogue(folder.path / "nothing"), std::runtime_error);
  EXPECT_THROW(bytesOfCatalogue("/dev/zero"), std::runtime_error);
}

// What passes is given to gettext itself; the sanitizers see the reads, and the test runner a hang.
TEST(CatalogueFile, NoSpoiltCatalogueHarmsGettext) {
  constexpr int kRounds = 100000;
  constexpr int kMostGivenToGettext = 200;  // which keeps each file for good
  const TemporaryFolder folder;
  const std::string sound = catalogueBytes(
      {{"Altitude", "Höhe"}, {"%d m", "%d min"}, {"Open", "Öffnen"}, {"N", "N"}, {"ETA", "An"}});
  const std::array<std::uint32_t, 8> edges = {0, 1, 3, 28, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 100};
  std::mt19937 random(20261123);  // NOLINT: the same files in every run
  const auto below = [&random](std::size_t end) { return random() % end; };
  int given = 0;
  for (int round = 0; round < kRounds; ++round) {
    std::string bytes = sound;
    for (std::size_t change = below(3) + 1; change > 0; --change) {
      switch (below(4)) {
        case 0:
          bytes[below(bytes.size())] ^= static_cast<char>(1U << below(8));
          break;
        case 1:
          setWord(bytes, 4 * below(30), edges[below(edges.size())]);
          break;
        case 2:
          setWord(bytes, 4 * below(30), static_cast<std::uint32_t>(below(bytes.size())));
          break;
        default:
          bytes.resize(std::max<std::size_t>(124, below(bytes.size() + 1)));
      }
    }
    std::vector<std::string> keys;
    try {
      keys = keysOfSoundCatalogue(bytes);
    } catch (const std::runtime_error&) {
    }
    if (keys.empty() || given == kMostGivenToGettext) continue;
    ++given;
    const auto root = folder.path / std::to_string(round);
    write(catalogueIn(root, "xx"), bytes);
    const GettextTable table(root, {"xx"}, [](const std::string&) {});
    for (const std::string& key : keys) table.find(key);
  }
  EXPECT_EQ(given, kMostGivenToGettext);
}

}  // namespace
}  // namespace wayfell
