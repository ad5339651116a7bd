#include "hosts/services/texts/UserTexts.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "hosts/services/UserLocale.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/InputError.h"
#include "hosts/text/InputFile.h"

namespace wayfell {
namespace {

// Ours have some kilobytes.
constexpr std::size_t kLargestFile = 4U << 20U;

// The names that a language's catalogues go by, the closest first.
std::vector<std::string> namesOf(const std::string& language) {
  const std::size_t at = std::min(language.find('@'), language.size());
  const std::string place = language.substr(0, at);
  const std::string modifier = language.substr(at);
  const std::string bare = place.substr(0, place.find('_'));
  return {language, bare + modifier, place, bare};
}

std::string bytesOf(const std::filesystem::path& file) {
  if (!std::filesystem::is_regular_file(file)) throw InputError("it is not a file");
  const InputFile input(file.string());
  return InputBytes(bytesOfFile(input.descriptor())).readAll(kLargestFile);
}

}  // namespace

CatalogueTexts userTexts(const Warn& warn) {
  return textsIn(catalogueFolder(), userLanguages(), warn);
}

std::vector<std::string> userLanguages() {
  const UserLocale user = userLocale();
  if (user.locale == "C" || user.locale == "POSIX") return {};
  std::vector<std::string> languages;
  for (const LocaleName& name :
       localeNames(user.languages.empty() ? user.locale : user.languages)) {
    std::string language = name.language;
    if (!name.territory.empty()) language += '_' + name.territory;
    if (!name.modifier.empty()) language += '@' + name.modifier;
    languages.push_back(std::move(language));
    if (name.language == "en") break;
  }
  return languages;
}

std::filesystem::path catalogueFolder() {
  const char* const chosen = std::getenv("WAYFELL_LOCALEDIR");
  if (chosen != nullptr && *chosen != '\0') return chosen;
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return "/usr/share/locale";
  auto beside = program.parent_path() / "share" / "locale";
  if (std::filesystem::is_directory(beside, error)) return beside;
  return program.parent_path().parent_path() / "share" / "locale";
}

CatalogueTexts textsIn(const std::filesystem::path& folder,
                       const std::vector<std::string>& languages, const Warn& warn) {
  CatalogueTexts texts(warn);
  std::set<std::filesystem::path> seen;
  for (const std::string& language : languages) {
    for (const std::string& name : namesOf(language)) {
      const auto file = folder / name / "LC_MESSAGES" / "wayfell.mo";
      std::error_code error;
      if (!seen.insert(file).second || !std::filesystem::exists(file, error)) continue;
      try {
        texts.add(file.string(), bytesOf(file));
      } catch (const std::runtime_error& fault) {
        warn(file.string() + ": " + fault.what() + ", so this catalogue is not used");
      }
    }
  }
  return texts;
}

}  // namespace wayfell
