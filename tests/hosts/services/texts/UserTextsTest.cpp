// The rules are those of the GNU gettext manual, "Locale Environment Variables" and "The LANGUAGE
// variable".
#include "hosts/services/texts/UserTexts.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace wayfell {
namespace {

// The environment is that of this test's own process.
TEST(UserTexts, LanguagesAreThoseOfTheEnvironment) {
  struct Case {
    const char* language;
    const char* all;
    const char* messages;
    const char* lang;
    std::vector<std::string> names;
  };
  const Case cases[] = {
      {"", "", "", "de_AT.UTF-8", {"de_AT"}},
      {"", "", "fr_FR.UTF-8", "de_AT.UTF-8", {"fr_FR"}},
      {"", "ar", "fr_FR.UTF-8", "de_AT.UTF-8", {"ar"}},
      {"fr:de", "", "", "ar_EG.UTF-8", {"fr", "de"}},
      {"C", "", "", "de_DE.UTF-8", {}},
      {"fr", "", "", "C.UTF-8", {"fr"}},
      {"fr", "", "", "C", {}},
      {"fr", "POSIX", "", "de_DE", {}},
      {"", "", "", "sr_RS.UTF-8@latin", {"sr_RS@latin"}},
      {"es_419::de", "", "", "en", {"es_419", "de"}},
      {"fr:en_GB:de", "", "", "de_DE", {"fr", "en_GB"}},
      {"../../tmp/x:german:/tmp:de/..:de_:de@:a:fr", "", "", "de_DE", {"fr"}},
  };
  for (const Case& c : cases) {
    setenv("LANGUAGE", c.language, 1);
    setenv("LC_ALL", c.all, 1);
    setenv("LC_MESSAGES", c.messages, 1);
    setenv("LANG", c.lang, 1);
    EXPECT_EQ(userLanguages(), c.names) << c.language << ' ' << c.all << ' ' << c.lang;
  }
}

TEST(UserTexts, CataloguesAreWhereTheEnvironmentSaysOrByTheProgram) {
  setenv("WAYFELL_LOCALEDIR", "/somewhere/else", 1);
  EXPECT_EQ(catalogueFolder(), "/somewhere/else");
  unsetenv("WAYFELL_LOCALEDIR");
  // This test stands in a folder of the build tree, as an installed program does in bin.
  EXPECT_EQ(catalogueFolder(), WAYFELL_CATALOGUES);
}

}  // namespace
}  // namespace wayfell
