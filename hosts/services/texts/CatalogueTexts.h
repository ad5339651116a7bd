// The texts of compiled catalogues, one language after the other. What a catalogue holds is trusted
// in nothing: one that is damaged is refused, and a translation that cannot stand in for its key
// is not handed out.
#pragma once

#include <forward_list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/services/Warn.h"
#include "platform/Host.h"

namespace wayfell {

class CatalogueTexts : public StringTable {
 public:
  explicit CatalogueTexts(Warn warn);
  CatalogueTexts(CatalogueTexts&&) = default;
  CatalogueTexts& operator=(CatalogueTexts&&) = default;

  /// Adds the texts of a compiled catalogue for keys that none before it translates. Warnings have
  /// its name. Throws InputError for one that is damaged, which adds none.
  void add(std::string name, std::string bytes);

  /// None also for a translation that is not UTF-8, holds control characters, breaks lines
  /// otherwise or is not of a size with its key, or, where the key is a format, does not take the
  /// same values; the first request warns of it. Names of datums are never translated: they are
  /// what settings store, and must mean the same in every language.
  std::optional<std::string_view> find(std::string_view key) const override;

 private:
  struct Catalogue {
    std::string name;
    std::string bytes;
  };
  struct Translation {
    std::string_view text;
    const Catalogue* catalogue;
    /// What is wrong with the text, until it has been said; the text is empty then.
    mutable const char* fault;
  };

  Warn warn_;
  std::forward_list<Catalogue> catalogues_;  // what is below has views of them
  std::unordered_map<std::string_view, Translation> translations_;  // by their keys
};

}  // namespace wayfell
