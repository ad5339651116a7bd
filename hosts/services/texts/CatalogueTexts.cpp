#include "hosts/services/texts/CatalogueTexts.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "datums/Catalogue.h"
#include "hosts/services/texts/CompiledCatalogue.h"
#include "hosts/text/Characters.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// What the longest translation may have beyond twice its key, in bytes: "ETA" can take a sentence,
// but not a page.
constexpr std::size_t kRoom = 200;

bool isDatumName(std::string_view key) {
  return std::any_of(kDatums.begin(), kDatums.end(),
                     [key](const CatalogueDatum& datum) { return datum.name == key; });
}

bool hasControlCharacter(std::string_view text) {
  while (!text.empty()) {
    const char32_t codePoint = takeCodePoint(text).value_or(U'\0');
    if (isControl(codePoint) && codePoint != U'\n') return true;
  }
  return false;
}

bool isFormat(std::string_view key) { return !formatsTakeSameArguments(key, ""); }

// Null for a text that can stand in for its key.
const char* faultOf(std::string_view text, std::string_view key) {
  if (text.size() > 2 * key.size() + kRoom) return "is too long";
  if (!isUtf8(text)) return "is not UTF-8";
  if (hasControlCharacter(text)) return "has a control character";
  if (std::count(text.begin(), text.end(), '\n') != std::count(key.begin(), key.end(), '\n')) {
    return "has not as many lines";
  }
  if (isFormat(key) && !formatsTakeSameArguments(text, key)) return "does not take the same values";
  return nullptr;
}

std::string complaintOf(const std::string& catalogue, std::string_view key, const char* fault) {
  std::string line(key);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return catalogue + ": the translation of " + inQuotes(line) + ' ' + fault +
         ", so the English text stands";
}

}  // namespace

CatalogueTexts::CatalogueTexts(Warn warn) : warn_(std::move(warn)) {}

void CatalogueTexts::add(std::string name, std::string bytes) {
  const Catalogue& catalogue =
      catalogues_.emplace_front(Catalogue{std::move(name), std::move(bytes)});
  for (const auto& [key, text] : readCompiledCatalogue(catalogue.bytes)) {
    if (text.empty() || isDatumName(key)) continue;
    const char* const fault = faultOf(text, key);
    translations_.try_emplace(key, Translation{fault ? "" : text, &catalogue, fault});
  }
}

std::optional<std::string_view> CatalogueTexts::find(std::string_view key) const {
  const auto found = translations_.find(key);
  if (found == translations_.end()) return std::nullopt;
  const Translation& translation = found->second;
  if (translation.fault) {
    warn_(complaintOf(translation.catalogue->name, key, std::exchange(translation.fault, nullptr)));
  }
  if (translation.text.empty()) return std::nullopt;
  return translation.text;
}

}  // namespace wayfell
