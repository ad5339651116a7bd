// Finds datums of the catalogue by what people remember of their names.
//
// Case, blanks, hyphens and other marks do not matter, nor do diacritics on either side: "16on"
// finds "16øN" and "réunion" finds "Reunion". A word is found where a word of the name begins, or
// its digits, and may run on over the next ones: "hutzushan" finds "Hu-Tzu-Shan", but "oman" does
// not find "Romania". Names of ellipsoids are searched, too, and usual short names: "NAD27".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

class DatumSearch {
 public:
  /// Searches the datum manager's catalogue as it is now; a number below is a place in its order.
  DatumSearch();

  /// The datum of exactly this name, or else of this name but for what does not matter; or else
  /// those of this name before the region, or of this usual short name.
  std::vector<std::size_t> named(std::string_view name) const;
  /// Datums that have all the words of a text; all datums for an empty one.
  std::vector<std::size_t> find(std::string_view text) const;

  struct Hint {
    std::string word;               ///< a word of the text, as it was typed
    std::vector<std::string> near;  ///< words of the catalogue, nearest first; may be empty
  };
  /// The words of a text that no datum has, and what may have been meant.
  std::vector<Hint> hints(std::string_view text) const;
  /// Datums that a text may mean: words that no datum has stand for those near them, and are left
  /// out where there are none.
  std::vector<std::size_t> near(std::string_view text) const;

 private:
  struct Entry {
    std::string name;                        // folded
    std::string text;                        // folded: the name, the ellipsoid's and short names
    std::vector<std::string> withoutRegion;  // folded: the name, and short names
    std::vector<bool> starts;  // for each letter of the text, whether a word begins there
    bool has(std::string_view folded) const;
  };
  struct Word {
    std::string folded;
    std::string shown;
  };

  void addText(Entry& entry, std::string_view text);
  void addShortNames(Entry& entry, std::string_view datum);
  bool known(std::string_view folded) const;
  std::vector<std::string_view> wordsOf(std::string_view text) const;
  std::vector<const Word*> nearWords(std::string_view folded) const;

  std::vector<Entry> entries_;
  std::vector<Word> words_;  // all names' words, each once, by their folded form
};

}  // namespace wayfell
