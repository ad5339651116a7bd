#include "hosts/services/addresses/AcceptLanguage.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace wayfell {
namespace {

constexpr std::size_t kMostLanguages = 6;

void addTag(std::vector<std::string>& tags, const std::string& tag) {
  const bool known = std::find(tags.begin(), tags.end(), tag) != tags.end();
  if (!known && tags.size() < kMostLanguages) tags.push_back(tag);
}

// A language of a country, and then the language.
void addNames(std::vector<std::string>& tags, std::string_view list) {
  for (const LocaleName& name : localeNames(list)) {
    if (!name.territory.empty()) addTag(tags, name.language + '-' + name.territory);
    addTag(tags, name.language);
  }
}

}  // namespace

std::string acceptLanguage(const UserLocale& user) {
  if (localeNames(user.locale).empty()) return {};
  std::vector<std::string> tags;
  addNames(tags, user.languages);
  addNames(tags, user.locale);
  std::string header;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    if (i > 0) header += ',';
    header += tags[i];
    if (i > 0) header += ";q=0." + std::to_string(10 - i);
  }
  return header;
}

}  // namespace wayfell
