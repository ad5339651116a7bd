// The rules are those of the GNU gettext manual, "Locale Environment Variables" and "The LANGUAGE
// variable".
#include "hosts/services/texts/UserTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Environment.h"

namespace wayfell {
namespace {

using Names = std::vector<std::string>;

TEST(UserTexts, LanguagesAreThoseOfTheEnvironment) {
  struct Case {
    const char* language;
    const char* all;
    const char* messages;
    const char* lang;
    Names names;
  };
  const std::string longName = "fr:de." + std::string(200'000, 'a');
  const Case cases[] = {
      {"", "", "", "", {}},
      {"", "", "", "de_AT.UTF-8", {"de_AT"}},
      {"", "", "fr_FR.UTF-8", "de_AT.UTF-8", {"fr_FR"}},
      {"", "ar", "fr_FR.UTF-8", "de_AT.UTF-8", {"ar"}},
      {"fr:de", "", "", "ar_EG.UTF-8", {"fr", "de"}},
      {"fr", "", "", "C.UTF-8", {"fr"}},
      {"fr", "", "", "C", {}},
      {"fr", "POSIX", "", "de_DE", {}},
      {"", "", "", "C.UTF-8", {}},
      {"", "", "", "sr_RS.UTF-8@latin", {"sr_RS@latin"}},
      {"es_419::de", "", "", "en", {"es_419", "de"}},
      {"fr:en_GB:de", "", "", "de_DE", {"fr", "en_GB"}},
      {"../../tmp/x:german:/tmp:de/..:a:fr", "", "", "de_DE", {"fr"}},
      {longName.c_str(), "", "", "de_DE", {"fr"}},
  };
  for (const Case& c : cases) {
    const Variable language("LANGUAGE", c.language);
    const Variable all("LC_ALL", c.all);
    const Variable messages("LC_MESSAGES", c.messages);
    const Variable lang("LANG", c.lang);
    EXPECT_EQ(userLanguages(), c.names) << c.language << ' ' << c.all << ' ' << c.lang;
  }
}

TEST(UserTexts, CataloguesAreWhereTheEnvironmentSaysOrByTheProgram) {
  {
    const Variable folder("WAYFELL_LOCALEDIR", "/somewhere/else");
    EXPECT_EQ(catalogueFolder(), "/somewhere/else");
  }
  const Variable folder("WAYFELL_LOCALEDIR", std::nullopt);
  // This test stands in a folder of the build tree, as an installed program does in bin.
  EXPECT_EQ(catalogueFolder(), WAYFELL_CATALOGUES);
}

}  // namespace
}  // namespace wayfell
