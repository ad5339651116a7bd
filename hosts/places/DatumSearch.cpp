#include "hosts/places/DatumSearch.h"

#include <algorithm>
#include <utility>

#include "datums/DatumManager.h"
#include "hosts/text/Characters.h"
#include "hosts/text/EditDistance.h"
#include "hosts/text/FoldedText.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

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
    entries_.push_back(std::move(entry));
  }
  std::sort(words_.begin(), words_.end(),
            [](const Word& a, const Word& b) { return a.folded < b.folded; });
  const auto same = [](const Word& a, const Word& b) { return a.folded == b.folded; };
  words_.erase(std::unique(words_.begin(), words_.end(), same), words_.end());
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

std::optional<std::size_t> DatumSearch::named(std::string_view name) const {
  const auto& names = DatumManager::sharedInstance().datumAndRegions();
  const auto exact = std::find(names.begin(), names.end(), name);
  if (exact != names.end()) return static_cast<std::size_t>(exact - names.begin());
  const auto found =
      std::find_if(entries_.begin(), entries_.end(),
                   [folded = foldedName(name)](const Entry& e) { return e.name == folded; });
  if (found == entries_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - entries_.begin());
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
