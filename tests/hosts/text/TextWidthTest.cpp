// Columns are those that ncurses 6.4 moved its cursor by, with glibc 2.36.
#include "hosts/text/TextWidth.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/text/FoldedText.h"

namespace wayfell {
namespace {

using testing::ElementsAre;

TEST(TextWidth, CountsAsNcursesDoes) {
  struct Case {
    const char* text;
    int columns;
  };
  const Case cases[] = {
      {"", 0},       {"7° 56.4' E", 10}, {"Höhenweg", 8}, {"Ho\u0308henweg", 8},
      {"東京", 4},   {"한국", 4},        {"กรุงเทพฯ", 7},  {"दिल्ली", 5},
      {"ಕರ್ನಾಟಕ", 6}, {"ಕಿ", 1},           {"🏔", 1},     {"🚶", 2},
      {"㉈", 2},     {"䷀", 2},          {"\u00AD", 1},   {"\u200B", 0},
      {"\u0600", 1}, {"\u2E9A", 1},      {"\xFF", 1},
  };
  for (const Case& c : cases) EXPECT_EQ(columnsOf(c.text), c.columns) << c.text;
}

TEST(TextWidth, CutsBetweenCharacters) {
  struct Case {
    const char* text;
    int columns;
    const char* cut;
  };
  const Case cases[] = {
      {"Lerchenweg", 4, "Lerc"},
      {"Lerchenweg", 0, ""},
      {"東京都", 5, "東京"},
      {"e\u0301e\u0301e\u0301", 2, "e\u0301e\u0301"},
      {"🇨🇭🇩🇪", 3, "🇨🇭"},      // two flags of two halves each
      {"a👩\u200D🌾", 4, "a"},  // a farmer, of a woman and a plant
      {"ಕಿಕಿ", 1, "ಕಿ"},
  };
  for (const Case& c : cases) EXPECT_EQ(cut(c.text, c.columns), c.cut) << c.text;
  EXPECT_EQ(fitted("Lerchenweg", 5), "Lerc…");
}

TEST(TextWidth, WrapsWhereLinesMayBreak) {
  EXPECT_THAT(wrapped("a file/of/many/folders is damaged", 10),
              ElementsAre("a file/of/", "many/", "folders is", "damaged"));
  EXPECT_THAT(wrapped("Donaudampfschiff 3.5 km", 8), ElementsAre("Donaudam", "pfschiff", "3.5 km"));
  EXPECT_THAT(wrapped("東京 東京都a", 5), ElementsAre("東京", "東京", "都a"));
  EXPECT_THAT(wrapped("ab   cd", 2), ElementsAre("ab", "cd"));
  EXPECT_THAT(wrapped("👩\u200D🌾👩\u200D🌾", 2), ElementsAre("👩\u200D🌾", "👩\u200D🌾"));
}

TEST(TextWidth, LeavesOutWhatTurnsTheDirection) {
  EXPECT_EQ(printable("12 \u202EtS\u2066 mlE\u200F\n\x1b"), "12 tS mlE  ");
}

TEST(FoldedText, HasSmallLettersAndDigitsOnly) {
  struct Case {
    const char* text;
    const char* folded;
  };
  const Case cases[] = {
      {"Hu-Tzu-Shan 16", "hutzushan16"},
      {"RÉUNION", "reunion"},
      {"Re\u0301union", "reunion"},
      {"Øresund", "oresund"},
      {"Łódź", "lodz"},
      {"Straße", "strasse"},
      {"Ｔｏｋｙｏ", "tokyo"},
      {"東京 1", "東京1"},
      {"Δελφοί", "δελφοι"},
      {"\xFF", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(foldedText(c.text), c.folded) << c.text;
}

}  // namespace
}  // namespace wayfell
