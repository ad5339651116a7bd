// The texts in the user's language, out of gettext's catalogues.
//
// Everything is read when the table is made, so that it does not matter what becomes of the files,
// and a lookup is one in memory. What a catalogue holds is trusted in nothing: a file that is not
// sound is left alone, and a translation that cannot stand in for its key is not handed out.
#pragma once

#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/services/Warn.h"
#include "platform/Host.h"

namespace wayfell {

class GettextTable : public StringTable {
 public:
  /// Reads FOLDER/LANGUAGE/LC_MESSAGES/wayfell.mo of each language (userLanguages()); the first
  /// that has a key translates it. "de_AT" means "de" too. Warns of catalogues that are not used.
  ///
  /// The environment is changed meanwhile, so no other thread may look at it. The process's locale
  /// stays as it is.
  GettextTable(const std::filesystem::path& folder, const std::vector<std::string>& languages,
               Warn warn);

  /// None also for a translation that is not UTF-8, holds control characters, breaks lines
  /// otherwise or is not of a size with its key, or, where the key is a format, does not take the
  /// same values; the first request warns of it. Names of datums are never translated: they are
  /// what settings store, and must mean the same in every language.
  std::optional<std::string_view> find(std::string_view key) const override;

 private:
  struct Translation {
    std::string text;
    /// What is wrong with the text, until it has been said; the text is empty then.
    mutable std::string complaint;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  void read(const std::filesystem::path& folder, const std::string& language);
  void refuse(const std::filesystem::path& file, const char* reason);

  Warn warn_;
  std::set<std::filesystem::path> refused_;
  std::unordered_map<std::string, Translation, Hash, std::equal_to<>> translations_;
};

}  // namespace wayfell
