// Catalogues as msgfmt would write them, made by hand from the GNU gettext manual's "The Format of
// GNU MO Files". What is wrong with them was put there by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

std::string wordBytes(std::uint32_t word, bool bigEndian = false) {
  std::string bytes;
  for (const unsigned shift : {0U, 8U, 16U, 24U}) bytes += static_cast<char>(word >> shift);
  return bigEndian ? std::string(bytes.rbegin(), bytes.rend()) : bytes;
}

// Seven words; the table of keys at 28, that of texts behind it, no hashes; then the strings.
std::string catalogueBytes(std::map<std::string, std::string> texts, bool bigEndian = false) {
  texts.emplace("", "Content-Type: text/plain; charset=UTF-8\n");
  const auto count = static_cast<std::uint32_t>(texts.size());
  std::string bytes;
  const auto put = [&](std::uint32_t word) { bytes += wordBytes(word, bigEndian); };
  for (const std::uint32_t word : {0x950412deU, 0U, count, 28U, 28U + 8 * count, 0U, 0U}) put(word);
  std::string strings;
  const auto place = [&](const std::string& text) {
    put(static_cast<std::uint32_t>(text.size()));
    put(28 + 16 * count + static_cast<std::uint32_t>(strings.size()));
    strings += text + '\0';
  };
  for (const auto& [key, text] : texts) place(key);
  for (const auto& [key, text] : texts) place(text);
  return bytes + strings;
}

class CatalogueTextsTest : public testing::Test {
 protected:
  std::vector<std::string> warnings;
  Warn warn = [this](const std::string& sentence) { warnings.push_back(sentence); };
  CatalogueTexts texts{warn};
};

void setWord(std::string& bytes, std::size_t offset, std::uint32_t word) {
  bytes.replace(offset, 4, wordBytes(word));
}

TEST_F(CatalogueTextsTest, TheFirstThatHasAKeyTranslatesIt) {
  texts.add("one", catalogueBytes({{"Open", "Öffnen"}, {"Pace", ""}, {"Time", "100 % %n"}}, true));
  texts.add("two", catalogueBytes({{std::string("%d m\0%d ms", 10), std::string("a %d\0b", 6)},
                                   {"Open", "Ouvrir"},
                                   {"Tokyo---Japan", "Tokio"}}));
  EXPECT_EQ(texts.find("Open"), "Öffnen");
  EXPECT_EQ(texts.find("Time"), "100 % %n");  // a caption, which is no format
  EXPECT_EQ(texts.find("%d m"), "a %d");
  for (const char* key : {"", "Pace", "Altitude", "Tokyo---Japan"}) {
    EXPECT_EQ(texts.find(key), std::nullopt) << key;
  }
  EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(CatalogueTextsTest, DamagedCataloguesAreLeftAlone) {
  // The entries of a string's length and place: "", "%d m" and "A" come before "Altitude".
  constexpr std::size_t kKey = 28 + 3 * 8;
  constexpr std::size_t kText = kKey + 4 * 8;
  struct Case {
    std::function<void(std::string&)> spoil;
    const char* fault;
  };
  const Case cases[] = {
      {[](std::string& b) { b.resize(27); }, "too short"},
      {[](std::string& b) { b[0] = 'x'; }, "not a compiled catalogue"},
      {[](std::string& b) { setWord(b, 4, 1); }, "revision"},
      {[](std::string& b) { setWord(b, 8, 0x20000000); }, "table of keys lies outside"},
      {[](std::string& b) { setWord(b, 8, 0); }, "no header"},
      {[](std::string& b) { setWord(b, 16, 0x7FFFFFFC); }, "table of texts lies outside"},
      {[](std::string& b) { setWord(b, kKey, 0xFFFFFFFF); }, "string lies outside"},
      {[](std::string& b) { setWord(b, kText, 3); }, "does not end"},
      {[](std::string& b) { b.replace(kText, 8, b.substr(kText - 8, 8)); }, "overlap"},
      {[](std::string& b) { b.replace(b.find("UTF-8"), 5, "UTF-7"); }, "not in UTF-8"},
      {[](std::string& b) { b.replace(b.find("charset"), 7, "CHARSET"); }, "no character set"},
  };
  for (const Case& c : cases) {
    std::string bytes =
        catalogueBytes({{"%d m", "%d min"}, {"A", std::string(1000, 'x')}, {"Altitude", "Höhe"}});
    c.spoil(bytes);
    EXPECT_THAT([&] { texts.add("it.mo", bytes); },
                testing::ThrowsMessage<InputError>(HasSubstr(c.fault)));
    EXPECT_EQ(texts.find("%d m"), std::nullopt) << c.fault;
  }
}

// Sanitizers see what is read outside; what is handed out must be sound.
TEST_F(CatalogueTextsTest, NoSpoiltCatalogueDoesHarm) {
  const std::string sound = catalogueBytes({{"Altitude", "Höhe"}, {"%d m", "%d min"}, {"N", "N"}});
  const std::array<std::uint32_t, 6> edges = {0, 1, 28, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
  std::mt19937 random(20261123);  // NOLINT: the same catalogues in every run
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = sound;
    bytes[random() % bytes.size()] ^= static_cast<char>(1U << random() % 8);
    if (round % 2 == 0) setWord(bytes, 4 * (random() % 22), edges[random() % edges.size()]);
    if (round % 16 == 0) bytes.resize(random() % bytes.size());
    CatalogueTexts spoilt([](const std::string& /*sentence*/) {});
    try {
      spoilt.add("", bytes);
    } catch (const InputError&) {
      continue;
    }
    const std::string_view format = spoilt.find("%d m").value_or("%d m");
    EXPECT_EQ(format.find("%d"), format.find('%')) << format;
  }
}

TEST_F(CatalogueTextsTest, WhatCannotStandInForItsKeyIsWarnedOfOnce) {
  struct Case {
    const char* key;
    std::string text;
    const char* fault;
  };
  const Case cases[] = {
      {"%0.0f m", "%d m", "values"},
      {"%0.2f km", "%0.2f km %400$@", "values"},
      {"%d hr %d m", "%d hr", "values"},
      {"Course", "\xED\xA0\x80", "UTF-8"},  // a surrogate
      {"ETA", "\x1B[2J", "control"},
      {"Pace", "\xC2\x9B[2J", "control"},  // the same, of eight bits
      {"Speed", "two\nlines", "lines"},
      {"Latitude\nLongitude", "one line", "lines"},
      {"Time", std::string(1000, 'x'), "too long"},
  };
  for (const Case& c : cases) {
    texts.add("it.mo", catalogueBytes({{c.key, c.text}}));
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(texts.find(c.key), std::nullopt);
    EXPECT_EQ(texts.find(c.key), std::nullopt);
    EXPECT_THAT(warnings, ElementsAre(AllOf(HasSubstr(c.fault), Not(HasSubstr("\n"))))) << c.key;
    warnings.clear();
  }
}

TEST_F(CatalogueTextsTest, FilesAreReadInTheOrderOfTheLanguages) {
  const Folder folder;
  for (const auto& [language, bytes] : std::map<std::string, std::string>{
           {"de", catalogueBytes({{"Open", "Öffnen"}, {"Time", "Zeit"}})},
           {"de_AT", catalogueBytes({{"Open", "Aufmachen"}})},
           {"fr", catalogueBytes({{"Time", "Temps"}, {"Speed", "Vitesse"}})},
           {"sr@latin", "no catalogue at all, but longer than one's first words"},
           {"it", std::string((4U << 20U) + 1, '\0')}}) {
    std::filesystem::create_directories(folder / language / "LC_MESSAGES");
    putBytes(folder / language / "LC_MESSAGES/wayfell.mo", bytes);
  }
  texts = textsIn(folder.path(), {"sr_RS@latin", "sr@latin", "it", "ca", "de_AT@euro", "fr"}, warn);
  EXPECT_EQ(texts.find("Open"), "Aufmachen");
  EXPECT_EQ(texts.find("Time"), "Zeit");
  EXPECT_EQ(texts.find("Speed"), "Vitesse");
  EXPECT_THAT(warnings, ElementsAre(EndsWith("sr@latin/LC_MESSAGES/wayfell.mo: it is not a "
                                             "compiled catalogue, so this catalogue is not used"),
                                    HasSubstr("longer than 4 MiB")));
}

}  // namespace
}  // namespace wayfell
