// What translators are given and have made of it, against what the system asks for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <string>

#include "datums/Catalogue.h"
#include "hosts/replay/Demo.h"
#include "hosts/replay/Replay.h"
#include "hosts/services/texts/UserTexts.h"

namespace wayfell {
namespace {

using Keys = std::set<std::string>;

class RecordingTable : public StringTable {
 public:
  std::optional<std::string_view> find(std::string_view key) const override {
    keys.emplace(key);
    return std::nullopt;
  }
  mutable Keys keys;
};

Keys keysForTranslators() {
  std::ifstream file(WAYFELL_SOURCES "/po/wayfell.pot");
  Keys keys;
  std::string key;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("msgstr ") && !key.empty()) keys.insert(key);
    if (line.starts_with("msgid ")) key.clear();
    if (!line.starts_with("msgid ") && !line.starts_with('"')) continue;
    for (std::size_t i = line.find('"') + 1; i + 1 < line.size(); ++i) {
      const bool isEscaped = line[i] == '\\';
      if (isEscaped) ++i;
      key += isEscaped && line[i] == 'n' ? '\n' : line[i];
    }
  }
  return keys;
}

TEST(Keys, TranslatorsGetWhatTheDemoAsksFor) {
  const RecordingTable asked;
  const auto show = [](ReplayedWidget& /*widget*/) { return true; };
  for (int choice = 0; choice < 15; ++choice) {  // three of units, five of formats
    ReplayedWidget widget;
    widget.host().translations = &asked;
    widget.host().suite.set("units", PropertyValue(choice % 3));
    widget.host().suite.set("coordinateUnits", PropertyValue(choice % 5));
    widget.host().suite.set("speed", PropertyValue(choice / 5));
    const auto recording = openRecording(InputBytes(demoBytes()));
    replay(*recording, widget, 60, {show});
  }
  // The names of datums stand in every language.
  for (const CatalogueDatum& datum : kDatums) asked.keys.erase(std::string(datum.name));
  EXPECT_THAT(keysForTranslators(), testing::IsSupersetOf(asked.keys));
}

TEST(Keys, EveryLanguageIsComplete) {
  std::ifstream languages(WAYFELL_SOURCES "/po/LINGUAS");
  ASSERT_TRUE(languages);
  for (std::string language; languages >> language;) {
    SCOPED_TRACE(language);
    const CatalogueTexts texts =
        textsIn(WAYFELL_CATALOGUES, {language},
                [](const std::string& warning) { ADD_FAILURE() << warning; });
    for (const std::string& key : keysForTranslators()) {
      const auto text = texts.find(key);
      ASSERT_TRUE(text) << key;
      // The tape's points may have other letters, one for one, and nothing else differs.
      const bool isTape = key.starts_with("...");
      for (std::size_t i = 0; isTape && i < std::max(key.size(), text->size()); ++i) {
        EXPECT_TRUE(key.at(i) == text->at(i) ||
                    (std::isupper(key[i]) && std::isupper(text->at(i))));
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
