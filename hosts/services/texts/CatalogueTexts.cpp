#include "hosts/services/texts/CatalogueTexts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "datums/Catalogue.h"
#include "hosts/text/Characters.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// ---- What msgfmt compiles: the gettext manual's "The Format of GNU MO Files" ----

struct CatalogueText {
  std::string_view key;          // of a plural the singular
  std::string_view translation;  // of a plural the first form
};

constexpr std::uint32_t kMagic = 0x950412de;
constexpr std::size_t kWord = 4;  // bytes

// Where the words at the front stand.
constexpr std::size_t kRevision = 1 * kWord;
constexpr std::size_t kCount = 2 * kWord;
constexpr std::size_t kKeys = 3 * kWord;
constexpr std::size_t kTranslations = 4 * kWord;
constexpr std::size_t kFrontSize = 7 * kWord;  // the other two are of a table of hashes

constexpr std::size_t kEntrySize = 2 * kWord;  // a string's length and place

// The first of the strings that one string holds, with a zero between them.
std::string_view firstOf(std::string_view strings) { return strings.substr(0, strings.find('\0')); }

void checkHeader(std::string_view header) {
  constexpr std::string_view kCharset = "charset=";
  const std::size_t found = header.find(kCharset);
  if (found == std::string_view::npos) throw InputError("its header names no character set");
  header.remove_prefix(found + kCharset.size());
  if (header.substr(0, header.find_first_of(" \t\n")) != "UTF-8") {
    throw InputError("it is not in UTF-8");
  }
}

// Reads a catalogue in either byte order. Throws InputError, said of "it", for one in which
// something lies outside or overlaps, and one that is not in UTF-8 by its header. The texts
// themselves are not judged.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes), unread_(bytes.size()) {
    if (bytes_.size() < kFrontSize) throw InputError("it is too short for a catalogue");
    isBigEndian_ = wordAt(0) != kMagic;
    if (wordAt(0) != kMagic) throw InputError("it is not a compiled catalogue");
    if (wordAt(kRevision) != 0) throw InputError("its format has an unknown revision");
    if (!hasTableAt(wordAt(kKeys))) throw InputError("its table of keys lies outside of it");
    if (!hasTableAt(wordAt(kTranslations))) {
      throw InputError("its table of texts lies outside of it");
    }
  }

  /// In the order of the file; views of the bytes.
  std::vector<CatalogueText> read() {
    const std::size_t count = wordAt(kCount);
    std::vector<CatalogueText> texts;
    texts.reserve(count);
    bool hasHeader = false;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string_view key = stringAt(wordAt(kKeys) + i * kEntrySize);
      const std::string_view translation = stringAt(wordAt(kTranslations) + i * kEntrySize);
      if (firstOf(key).empty()) {
        checkHeader(translation);
        hasHeader = true;
      } else {
        texts.push_back({firstOf(key), firstOf(translation)});
      }
    }
    if (!hasHeader) throw InputError("it has no header");
    return texts;
  }

 private:
  std::uint32_t wordAt(std::size_t offset) const {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kWord; ++i) {
      const std::size_t place = offset + (isBigEndian_ ? i : kWord - 1 - i);
      word = word << 8U | static_cast<unsigned char>(bytes_[place]);
    }
    return word;
  }

  bool hasTableAt(std::size_t offset) const {
    return offset <= bytes_.size() && wordAt(kCount) <= (bytes_.size() - offset) / kEntrySize;
  }

  // No byte belongs to two strings, so that all of them are not longer than the file.
  std::string_view stringAt(std::size_t entry) {
    const std::size_t length = wordAt(entry);
    const std::size_t offset = wordAt(entry + kWord);
    if (offset >= bytes_.size() || length >= bytes_.size() - offset) {
      throw InputError("a string lies outside of it");
    }
    if (bytes_[offset + length] != '\0') throw InputError("a string does not end where it says");
    if (length >= unread_) throw InputError("its strings overlap");
    unread_ -= length + 1;
    return bytes_.substr(offset, length);
  }

  std::string_view bytes_;
  bool isBigEndian_ = false;
  std::size_t unread_;  // bytes that can still be a string's
};

// ---- What is handed out of it ----

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
  for (const auto& [key, text] : Reader(catalogue.bytes).read()) {
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
