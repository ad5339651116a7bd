#include "hosts/services/addresses/AcceptLanguage.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace wayfell {
namespace {

constexpr std::size_t kMostLanguages = 6;
constexpr std::string_view kTagCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-";

// "de-AT" for "de_AT.UTF-8@euro"; empty for what is none.
std::string tagOf(std::string_view locale) {
  std::string tag(locale.substr(0, locale.find_first_of(".@")));
  std::replace(tag.begin(), tag.end(), '_', '-');
  const bool none =
      tag == "C" || tag == "POSIX" || tag.find_first_not_of(kTagCharacters) != std::string::npos;
  return none ? std::string() : tag;
}

void addTag(std::vector<std::string>& tags, const std::string& tag) {
  const bool known = std::find(tags.begin(), tags.end(), tag) != tags.end();
  if (!tag.empty() && !known && tags.size() < kMostLanguages) tags.push_back(tag);
}

// A language of a country, and then the language.
void addLocale(std::vector<std::string>& tags, std::string_view locale) {
  const std::string tag = tagOf(locale);
  addTag(tags, tag);
  addTag(tags, tag.substr(0, tag.find('-')));
}

std::string_view variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

}  // namespace

std::string acceptLanguage(std::string_view locale, std::string_view languages) {
  if (tagOf(locale).empty()) return {};
  std::vector<std::string> tags;
  while (!languages.empty()) {
    const std::size_t end = std::min(languages.find(':'), languages.size());
    addLocale(tags, languages.substr(0, end));
    languages.remove_prefix(std::min(end + 1, languages.size()));
  }
  addLocale(tags, locale);
  std::string header;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    if (i > 0) header += ',';
    header += tags[i];
    if (i > 0) header += ";q=0." + std::to_string(10 - i);
  }
  return header;
}

std::string usersAcceptLanguage() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string_view locale = variable(name);
    if (!locale.empty()) return acceptLanguage(locale, variable("LANGUAGE"));
  }
  return {};
}

}  // namespace wayfell
