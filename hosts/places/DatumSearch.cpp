#include "hosts/places/DatumSearch.h"

#include <algorithm>
#include <array>
#include <utility>

#include "datums/DatumManager.h"
#include "hosts/text/Characters.h"
#include "hosts/text/EditDistance.h"
#include "hosts/text/FoldedText.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

struct ShortName {
  std::string_view name;
  std::string_view datum;  // of the catalogue, before the region
};

// As the EPSG dataset abbreviates these datums, whose codes there stand behind. The catalogue has
// Pulkovo 1942, System 42 and in Russian SK-42, under two names.
constexpr std::array kShortNames = {
    ShortName{"AGD66", "Australian Geodetic 1966"},             // 6202
    ShortName{"AGD84", "Australian Geodetic 1984"},             // 6203
    ShortName{"CH1903", "CH1903-LV03"},                         // 6149
    ShortName{"ED50", "European 1950"},                         // 6230
    ShortName{"ED79", "European 1979"},                         // 6668
    ShortName{"HK80", "Hong Kong 1980"},                        // 6611
    ShortName{"NAD27", "North American 1927"},                  // 6267
    ShortName{"NAD83", "North American 1983"},                  // 6269
    ShortName{"NZGD49", "Geodetic Datum 1949"},                 // 6272
    ShortName{"OSGB36", "Ordnance Survey Great Britain 1936"},  // 6277
    ShortName{"PSAD56", "Provisional South American 1956"},     // 6248
    ShortName{"Pulkovo 1942", "S-42 (Pulkovo 1942)"},           // 6284
    ShortName{"S-42", "Pulkovo 1942"},                          // 6284
    ShortName{"S-42", "S-42 (Pulkovo 1942)"},                   // 6284
    ShortName{"SK-42", "Pulkovo 1942"},                         // 6284
    ShortName{"SK-42", "S-42 (Pulkovo 1942)"},                  // 6284
    ShortName{"SAD69", "South American 1969"},                  // 6618
    ShortName{"WGS 72", "WGS 1972"},                            // 6322
    ShortName{"WGS 84", "WGS 1984"},                            // 6326
};

// The catalogue writes ø for a degree sign.
std::string foldedName(std::string_view text) {
  constexpr std::string_view kDegree = "°";
  std::string name(text);
  for (std::size_t at = name.find(kDegree); at != std::string::npos; at = name.find(kDegree, at)) {
    name.replace(at, kDegree.size(), 1, 'o');
  }
  return foldedText(name);
}

std::vector<std::string_view> splitAt(std::string_view separators, std::string_view text) {
  std::vector<std::string_view> words;
  for (std::size_t start = text.find_first_not_of(separators); start != std::string_view::npos;
       start = text.find_first_not_of(separators, start)) {
    const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
    words.push_back(text.substr(start, end - start));
    start = end;
  }
  return words;
}

}  // namespace

DatumSearch::DatumSearch() {
  const DatumManager& manager = DatumManager::sharedInstance();
  for (const std::string& name : manager.datumAndRegions()) {
    Entry entry;
    addText(entry, name);
    entry.name = entry.text;
    addText(entry, manager.getEllipsoidFromDatum(name).value_or(""));
    addShortNames(entry, std::string_view(name).substr(0, name.find("---")));
    entries_.push_back(std::move(entry));
  }
  std::sort(words_.begin(), words_.end(),
            [](const Word& a, const Word& b) { return a.folded < b.folded; });
  const auto same = [](const Word& a, const Word& b) { return a.folded == b.folded; };
  words_.erase(std::unique(words_.begin(), words_.end(), same), words_.end());
}

void DatumSearch::addShortNames(Entry& entry, std::string_view datum) {
  entry.withoutRegion.push_back(foldedName(datum));
  for (const ShortName& each : kShortNames) {
    if (each.datum != datum) continue;
    addText(entry, each.name);
    entry.withoutRegion.push_back(foldedName(each.name));
  }
}

void DatumSearch::addText(Entry& entry, std::string_view text) {
  Word word;
  const auto endWord = [this, &word] {
    if (!word.folded.empty()) words_.push_back(std::exchange(word, {}));
  };
  while (!text.empty()) {
    const std::string_view before = text;
    takeCodePoint(text);
    const std::string_view letter = before.substr(0, before.size() - text.size());
    const std::string folded = foldedText(letter);
    if (folded.empty()) {
      endWord();
      continue;
    }
    const bool begins =
        word.folded.empty() || isDigit(word.folded.back()) != isDigit(folded.front());
    entry.text += folded;
    entry.starts.push_back(begins);
    entry.starts.resize(entry.text.size());
    word.folded += folded;
    word.shown += letter;
  }
  endWord();
}

std::vector<std::size_t> DatumSearch::named(std::string_view name) const {
  const auto& names = DatumManager::sharedInstance().datumAndRegions();
  const std::string folded = foldedName(name);
  std::vector<std::size_t> found;
  std::vector<std::size_t> regions;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    if (names[i] == name) return {i};
    if (entry.name == folded) found.push_back(i);
    if (std::find(entry.withoutRegion.begin(), entry.withoutRegion.end(), folded) !=
        entry.withoutRegion.end()) {
      regions.push_back(i);
    }
  }
  return found.empty() ? regions : found;
}

bool DatumSearch::Entry::has(std::string_view folded) const {
  if (folded.empty()) return false;
  for (std::size_t at = text.find(folded); at < text.size(); at = text.find(folded, at + 1)) {
    if (starts[at]) return true;
  }
  return false;
}

bool DatumSearch::known(std::string_view folded) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [folded](const Entry& entry) { return entry.has(folded); });
}

// A word with marks in it is several, unless it is found as one.
std::vector<std::string_view> DatumSearch::wordsOf(std::string_view text) const {
  constexpr std::string_view kMarks = "-_;,./()&'+\"";
  std::vector<std::string_view> words;
  for (const std::string_view word : splitAt(" \t\r\n", text)) {
    if (known(foldedName(word))) {
      words.push_back(word);
    } else {
      const auto pieces = splitAt(kMarks, word);
      words.insert(words.end(), pieces.begin(), pieces.end());
    }
  }
  return words;
}

std::vector<std::size_t> DatumSearch::find(std::string_view text) const {
  std::vector<std::string> words;
  for (const std::string_view word : wordsOf(text)) words.push_back(foldedName(word));
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const auto isThere = [&entry = entries_[i]](const std::string& w) { return entry.has(w); };
    if (std::all_of(words.begin(), words.end(), isThere)) found.push_back(i);
  }
  return found;
}

std::vector<const DatumSearch::Word*> DatumSearch::nearWords(std::string_view folded) const {
  constexpr std::size_t kMost = 3;
  std::size_t nearest = greatestSlip(folded.size());
  std::vector<const Word*> near;
  for (const Word& word : words_) {
    const std::size_t distance = editDistance(folded, word.folded);
    if (distance > nearest || distance >= folded.size()) continue;
    if (distance < nearest) near.clear();
    nearest = distance;
    near.push_back(&word);
  }
  near.resize(std::min(near.size(), kMost));
  return near;
}

std::vector<DatumSearch::Hint> DatumSearch::hints(std::string_view text) const {
  std::vector<Hint> hints;
  for (const std::string_view word : wordsOf(text)) {
    const std::string folded = foldedName(word);
    if (known(folded)) continue;
    Hint hint{std::string(word), {}};
    for (const Word* near : nearWords(folded)) hint.near.push_back(near->shown);
    hints.push_back(std::move(hint));
  }
  return hints;
}

std::vector<std::size_t> DatumSearch::near(std::string_view text) const {
  std::vector<std::vector<std::string>> meanings;  // one list for each word that has any
  for (const std::string_view word : wordsOf(text)) {
    const std::string folded = foldedName(word);
    std::vector<std::string> meaning;
    if (known(folded)) {
      meaning.push_back(folded);
    } else {
      for (const Word* near : nearWords(folded)) meaning.push_back(near->folded);
    }
    if (!meaning.empty()) meanings.push_back(std::move(meaning));
  }
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < entries_.size() && !meanings.empty(); ++i) {
    const auto isThere = [&entry = entries_[i]](const std::vector<std::string>& meaning) {
      return std::any_of(meaning.begin(), meaning.end(),
                         [&entry](const std::string& word) { return entry.has(word); });
    };
    if (std::all_of(meanings.begin(), meanings.end(), isThere)) found.push_back(i);
  }
  return found;
}

}  // namespace wayfell
