#include "hosts/services/texts/GettextTable.h"

#include <langinfo.h>
#include <libintl.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "datums/Catalogue.h"
#include "hosts/services/texts/CatalogueFile.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"
#include "platform/NSString.h"

// How gettext is told that the language has changed; its manual gives this declaration.
extern "C" int _nl_msg_cat_cntr;  // NOLINT

namespace wayfell {
namespace {

constexpr const char* kDomain = "wayfell";

// What the longest translation may have beyond twice its key, in bytes: "ETA" can take a sentence,
// but not a page.
constexpr std::size_t kRoom = 200;

// The user's locale, or where it is not installed "C.UTF-8", which always is: gettext goes by
// LANGUAGE in any but "C".
locale_t messagesLocale() {
  locale_t users = newlocale(LC_MESSAGES_MASK, "", nullptr);
  if (users != nullptr) {
    if (std::strcmp(nl_langinfo_l(NL_LOCALE_NAME(LC_MESSAGES), users), "C") != 0) return users;
    freelocale(users);
  }
  return newlocale(LC_MESSAGES_MASK, "C.UTF-8", nullptr);
}

// Asks gettext for one language, whatever the user's are. Undoes all it changes.
class Gettext {
 public:
  Gettext(const std::filesystem::path& folder, const std::string& language) {
    if (const char* list = std::getenv("LANGUAGE")) userLanguages_ = list;
    setenv("LANGUAGE", language.c_str(), 1);
    if (locale_ != nullptr) threadLocale_ = uselocale(locale_);
    bindtextdomain(kDomain, folder.c_str());
    bind_textdomain_codeset(kDomain, "UTF-8");
    ++_nl_msg_cat_cntr;
  }
  ~Gettext() {
    if (locale_ != nullptr) {
      uselocale(threadLocale_);
      freelocale(locale_);
    }
    if (userLanguages_) {
      setenv("LANGUAGE", userLanguages_->c_str(), 1);
    } else {
      unsetenv("LANGUAGE");
    }
  }
  Gettext(const Gettext&) = delete;
  Gettext& operator=(const Gettext&) = delete;

  /// Empty without a translation.
  std::string translation(const std::string& key) const {
    const char* text = dgettext(kDomain, key.c_str());
    return text == key.c_str() ? "" : text;
  }

 private:
  std::optional<std::string> userLanguages_;
  locale_t locale_ = messagesLocale();
  locale_t threadLocale_ = nullptr;
};

// The names under which gettext looks for a language, the closest first.
std::vector<std::string> namesOf(const std::string& language) {
  const std::string modifier =
      language.find('@') == std::string::npos ? "" : language.substr(language.find('@'));
  const std::string place = language.substr(0, language.size() - modifier.size());
  const std::string bare = place.substr(0, place.find('_'));
  std::vector<std::string> names;
  for (const std::string& name : {language, bare + modifier, place, bare}) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

bool isDatumName(std::string_view key) {
  return std::any_of(kDatums.begin(), kDatums.end(),
                     [key](const CatalogueDatum& datum) { return datum.name == key; });
}

bool isControl(char32_t codePoint) {
  return (codePoint < 0x20 && codePoint != U'\n') || (codePoint >= 0x7F && codePoint < 0xA0);
}

bool hasControlCharacter(std::string_view text) {
  while (!text.empty()) {
    if (isControl(takeCodePoint(text).value_or(0))) return true;
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

std::string complaintOf(const std::filesystem::path& file, std::string key, const char* fault) {
  std::replace(key.begin(), key.end(), '\n', ' ');
  return file.string() + ": the translation of " + inQuotes(key) + ' ' + fault +
         ", so the English text stands";
}

}  // namespace

GettextTable::GettextTable(const std::filesystem::path& folder,
                           const std::vector<std::string>& languages, Warn warn)
    : warn_(std::move(warn)) {
  for (const std::string& language : languages) read(folder, language);
}

void GettextTable::read(const std::filesystem::path& folder, const std::string& language) {
  struct Catalogue {
    std::filesystem::path file;
    std::vector<std::string> keys;
  };
  std::vector<Catalogue> catalogues;
  // gettext opens those of them that it likes: all must be sound before it is asked.
  bool sound = true;
  for (const std::string& name : namesOf(language)) {
    const auto file = folder / name / "LC_MESSAGES" / (std::string(kDomain) + ".mo");
    std::error_code error;
    if (!std::filesystem::exists(file, error)) continue;
    try {
      catalogues.push_back({file, keysOfSoundCatalogue(bytesOfCatalogue(file))});
    } catch (const std::runtime_error& reason) {
      refuse(file, reason.what());
      sound = false;
    }
  }
  if (!sound || catalogues.empty()) return;

  const Gettext gettext(folder, language);
  for (const Catalogue& catalogue : catalogues) {
    for (const std::string& key : catalogue.keys) {
      if (translations_.contains(key) || isDatumName(key)) continue;
      std::string text = gettext.translation(key);
      if (text.empty()) continue;
      Translation& translation = translations_[key];
      if (const char* fault = faultOf(text, key)) {
        translation.complaint = complaintOf(catalogue.file, key, fault);
      } else {
        translation.text = std::move(text);
      }
    }
  }
}

// Two languages may come to the same file.
void GettextTable::refuse(const std::filesystem::path& file, const char* reason) {
  if (!refused_.insert(file).second) return;
  warn_(file.string() + ": " + reason + ", so this catalogue is not used");
}

std::optional<std::string_view> GettextTable::find(std::string_view key) const {
  const auto found = translations_.find(key);
  if (found == translations_.end()) return std::nullopt;
  const Translation& translation = found->second;
  if (!translation.complaint.empty()) warn_(std::exchange(translation.complaint, ""));
  if (translation.text.empty()) return std::nullopt;
  return translation.text;
}

}  // namespace wayfell
