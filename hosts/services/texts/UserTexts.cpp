#include "hosts/services/texts/UserTexts.h"

#include <cstdlib>
#include <regex>
#include <string_view>
#include <system_error>

namespace wayfell {
namespace {

// std::regex takes stack for each character of what it matches.
constexpr std::size_t kLongestName = 100;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string localeOfMessages() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (std::string locale = environment(name); !locale.empty()) return locale;
  }
  return "C";
}

}  // namespace

std::vector<std::string> userLanguages() {
  const std::string locale = localeOfMessages();
  if (locale == "C" || locale == "POSIX") return {};
  const std::string list = environment("LANGUAGE");
  const std::string& names = list.empty() ? locale : list;

  // Language, territory, character set, modifier. Longer names would be aliases.
  static const std::regex kName("([a-z]{2,3})(_[A-Z0-9]{2,3})?([.][^@:]*)?(@[A-Za-z0-9]+)?");
  static const std::regex kColon(":");
  std::vector<std::string> languages;
  for (std::sregex_token_iterator name(names.begin(), names.end(), kColon, -1), end; name != end;
       ++name) {
    const std::string text = *name;
    std::smatch parts;
    if (text.size() > kLongestName || !std::regex_match(text, parts, kName)) continue;
    languages.push_back(parts.str(1) + parts.str(2) + parts.str(4));
    if (parts.str(1) == "en") break;
  }
  return languages;
}

std::filesystem::path catalogueFolder() {
  if (std::string folder = environment("WAYFELL_LOCALEDIR"); !folder.empty()) return folder;
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return "/usr/share/locale";
  auto beside = program.parent_path() / "share" / "locale";
  if (std::filesystem::is_directory(beside, error)) return beside;
  return program.parent_path().parent_path() / "share" / "locale";
}

}  // namespace wayfell
