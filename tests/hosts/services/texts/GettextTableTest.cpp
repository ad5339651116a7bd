#include "hosts/services/texts/GettextTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "CatalogueBytes.h"
#include "Environment.h"
#include "TranslatedWidget.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kWgs84 = "WGS 1984---Global Definition";
const char* const kTokyo = "Tokyo---Japan";

class GettextTableTest : public testing::Test {
 protected:
  void translate(const std::string& language, const Texts& texts) const {
    write(catalogueIn(folder_.path, language), catalogueBytes(texts));
  }
  GettextTable table(const std::vector<std::string>& languages) {
    return {folder_.path, languages,
            [this](const std::string& text) { warnings_.push_back(text); }};
  }

  TemporaryFolder folder_;
  std::vector<std::string> warnings_;
};

TEST_F(GettextTableTest, TheFirstLanguageThatHasAKeyTranslatesIt) {
  translate("de", {{"Open", "Öffnen"}, {"Time", "Zeit"}, {"Pace", ""}});
  translate("de_AT", {{"Open", "Aufmachen"}});
  translate("fr", {{"Time", "Temps"}, {"Speed", "Vitesse"}});
  const GettextTable strings = table({"it", "de_AT", "fr"});
  EXPECT_EQ(strings.find("Open"), "Aufmachen");
  EXPECT_EQ(strings.find("Time"), "Zeit");
  EXPECT_EQ(strings.find("Speed"), "Vitesse");
  EXPECT_EQ(strings.find("Pace"), std::nullopt);
  EXPECT_EQ(strings.find("Altitude"), std::nullopt);
  EXPECT_EQ(strings.find(""), std::nullopt);  // where gettext keeps the header
  EXPECT_EQ(table({}).find("Open"), std::nullopt);
  EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(GettextTableTest, ReadsAllAtOnceAndLeavesTheProcessAsItWas) {
  translate("de", {{"Open", "Öffnen"}});
  const Variable language("LANGUAGE", "fr:it");
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  const GettextTable strings = table({"de"});
  EXPECT_STREQ(std::getenv("LANGUAGE"), "fr:it");
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
  const std::string_view text = strings.find("Open").value();
  // Were the file still mapped, this would end the process.
  std::filesystem::resize_file(catalogueIn(folder_.path, "de"), 0);
  EXPECT_EQ(text, "Öffnen");
  EXPECT_EQ(strings.find("Open")->data(), text.data());
}

// Two languages of one table must not answer for each other: gettext remembers what it found.
TEST_F(GettextTableTest, TablesOfTwoLanguagesStandSideBySide) {
  translate("de", {{"Open", "Öffnen"}});
  translate("fr", {{"Open", "Ouvrir"}});
  const GettextTable german = table({"de"});
  const GettextTable french = table({"fr"});
  EXPECT_EQ(german.find("Open"), "Öffnen");
  EXPECT_EQ(french.find("Open"), "Ouvrir");
}

TEST_F(GettextTableTest, ASpoiltCatalogueIsNotUsedNorWhatGettextWouldTakeForIt) {
  translate("de", {{"Open", "Öffnen"}});
  translate("fr", {{"Open", "Ouvrir"}});
  write(catalogueIn(folder_.path, "de_AT"), "no catalogue at all, but longer than its header");
  const GettextTable strings = table({"de_AT", "de_AT", "fr"});
  EXPECT_EQ(strings.find("Open"), "Ouvrir");
  EXPECT_THAT(warnings_,
              ElementsAre(catalogueIn(folder_.path, "de_AT").string() +
                          ": it is not a compiled catalogue, so this catalogue is not used"));
}

TEST_F(GettextTableTest, WhatCannotStandInForItsKeyIsWarnedOfOnce) {
  std::string thousand;
  for (int i = 0; i < 1000; ++i) thousand += "%@";
  struct Case {
    const char* key;
    std::string text;
    const char* fault;
  };
  const Case cases[] = {
      {"%0.0f m", "%d m", "values"},
      {"%0.0f m", "%s%n m", "values"},
      {"%d m", "%*d m", "values"},
      {"%@, %@", thousand, "too long"},
      {"%0.2f km", "%0.2f km %400$@", "values"},
      {"%d hr %d m", "%d hr", "values"},
      {"Open", "\xC3\x28", "UTF-8"},
      {"Open", "\xED\xA0\x80", "UTF-8"},  // a surrogate
      {"Open", "\x1B[2J", "control"},
      {"Open", "\xC2\x9B[2J", "control"},  // the same, of eight bits
      {"Open", "a\rb", "control"},
      {"Open", "two\nlines", "lines"},
      {"Latitude\nLongitude", "one line", "lines"},
      {"Time", std::string(1U << 20U, 'x'), "too long"},
  };
  int number = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.key) + ": " + c.fault);
    const std::string language = {'x', static_cast<char>('a' + number++)};
    translate(language, {{c.key, c.text}});
    const GettextTable strings = table({language});
    EXPECT_THAT(warnings_, IsEmpty());
    EXPECT_EQ(strings.find(c.key), std::nullopt);
    EXPECT_EQ(strings.find(c.key), std::nullopt);
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr(c.fault)));
    EXPECT_THAT(warnings_, ElementsAre(Not(HasSubstr("\n"))));
    warnings_.clear();
  }
}

TEST_F(GettextTableTest, WhatIsOddButHarmlessIsShown) {
  const std::string digits = "%999999999.999999999f";
  translate("de", {{"Open", "100 % %n %s%*d"}, {"%d m", "%1$ld Min"}, {"%0.0f m", digits}});
  const GettextTable strings = table({"de"});
  EXPECT_EQ(strings.find("Open"), "100 % %n %s%*d");
  EXPECT_EQ(strings.find("%d m"), "%1$ld Min");
  // Bounded where it is filled in: one digit, the point and 400 more.
  EXPECT_EQ(stringWithFormat(*strings.find("%0.0f m"), 1.0).size(), 402U);
  EXPECT_THAT(warnings_, IsEmpty());
}

// gettext compiles the rule for plurals when it opens the file, by recursion.
TEST_F(GettextTableTest, ALongRuleForPluralsIsCompiled) {
  const auto times = [](int count, const std::string& piece) {
    std::string text;
    while (count-- > 0) text += piece;
    return text;
  };
  char last = 'a';
  for (const std::string& rule : {times(1900, "(") + 'n' + times(1900, ")"), times(3900, "!") + 'n',
                                  times(1900, "n+") + 'n', times(900, "n?n:") + 'n'}) {
    const std::string language = {'x', last++};
    translate(language,
              {{"", std::string(kHeader) + "Plural-Forms: nplurals=9; plural=" + rule + ";\n"},
               {"Open", "Auf"}});
    EXPECT_EQ(table({language}).find("Open"), "Auf") << rule;
  }
  EXPECT_THAT(warnings_, IsEmpty());
}

// A whole widget that is handed the worst: it shows the keys, or what it was handed as it stands.
TEST_F(GettextTableTest, AWidgetWithAHostileCatalogueShowsItsKeys) {
  translate("de", {{"Open", "%n%n%n"},
                   {"Altitude", "\x1B]0;title\x07"},
                   {"%0.0f ft", "%s%s%s%s"},
                   {"Latitude\nLongitude", "%@%@%@"},
                   {"%@, %@", "%5$@"}});
  const GettextTable strings = table({"de"});
  TranslatedWidget widget(strings);
  widget.appear();
  widget.fix(48.2082, 16.3738, 100);
  EXPECT_EQ(widget.text("openLabel"), "%n%n%n");
  EXPECT_EQ(widget.text("altitudeNameLabel"), "Altitude");
  EXPECT_EQ(widget.text("latLongLabel"), "Latitude\nLongitude");  // other lines than its key's
  EXPECT_EQ(widget.text("altitudeLabel"), "328 ft");              // 100 m x 3.2808399
  EXPECT_EQ(warnings_.size(), 3U);
}

// A stored name means the same datum in every language, and one written in another is unknown.
TEST_F(GettextTableTest, NamesOfDatumsStayKeys) {
  translate("de", {{kWgs84, "Welt"}, {kTokyo, "Tokio"}, {"Open", "Öffnen"}});
  const GettextTable strings = table({"de"});
  TranslatedWidget widget(strings);
  const auto shown = [&widget](const char* datum) {
    widget.host().local.set("selectedDatum", PropertyValue(datum));
    widget.fix(35.68, 139.76);
    return *widget.text("userCoordinateLabel");
  };
  widget.appear();
  EXPECT_EQ(widget.text("openLabel"), "Öffnen");
  widget.fix(35.68, 139.76);
  EXPECT_EQ(*widget.host().local.find("selectedDatum"), PropertyValue(kWgs84));
  EXPECT_EQ(widget.text("userCoordinateLabel"), "35.68000°N, 139.76000°E");

  // The longitude of the Tokyo datum is larger by some 11.6'' in that city.
  EXPECT_THAT(shown(kTokyo), HasSubstr("139.7632"));
  EXPECT_EQ(*widget.host().local.find("selectedDatum"), PropertyValue(kTokyo));

  EXPECT_EQ(shown("Tokio"), "35.68000°N, 139.76000°E");
  EXPECT_EQ(*widget.host().local.find("selectedDatum"), PropertyValue(kWgs84));
}

}  // namespace
}  // namespace wayfell
