#include "hosts/services/UserLocale.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <optional>

namespace wayfell {
namespace {

constexpr std::string_view kSmallLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kCapitalsAndDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::string_view kLettersAndDigits =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// What stands behind the mark is taken off the text, with the mark. None without a mark.
std::optional<std::string_view> takeBehind(std::string_view& text, char mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view behind = text.substr(at + 1);
  text = text.substr(0, at);
  return behind;
}

bool isMadeOf(std::string_view characters, std::string_view text) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool isCode(std::string_view characters, std::string_view text) {
  return (text.size() == 2 || text.size() == 3) && isMadeOf(characters, text);
}

// The parts of language[_TERRITORY][.charset][@modifier].
std::optional<LocaleName> localeName(std::string_view text) {
  const auto modifier = takeBehind(text, '@');
  takeBehind(text, '.');
  const auto territory = takeBehind(text, '_');
  if (!isCode(kSmallLetters, text) || (territory && !isCode(kCapitalsAndDigits, *territory)) ||
      (modifier && !isMadeOf(kLettersAndDigits, *modifier))) {
    return std::nullopt;
  }
  return LocaleName{std::string(text), std::string(territory.value_or("")),
                    std::string(modifier.value_or(""))};
}

}  // namespace

UserLocale userLocale() {
  UserLocale user{"C", variable("LANGUAGE")};
  for (const char* const name : {"LANG", "LC_MESSAGES", "LC_ALL"}) {
    if (std::string locale = variable(name); !locale.empty()) user.locale = std::move(locale);
  }
  return user;
}

std::vector<LocaleName> localeNames(std::string_view list) {
  std::vector<LocaleName> names;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(':'), list.size());
    if (auto name = localeName(list.substr(0, end))) names.push_back(std::move(*name));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return names;
}

std::string acceptLanguage(const UserLocale& user) {
  constexpr std::size_t kMostLanguages = 6;
  if (localeNames(user.locale).empty()) return {};
  std::vector<std::string> tags;
  const auto add = [&tags](const std::string& tag) {
    const bool known = std::find(tags.begin(), tags.end(), tag) != tags.end();
    if (!known && tags.size() < kMostLanguages) tags.push_back(tag);
  };
  for (const LocaleName& name : localeNames(user.languages + ':' + user.locale)) {
    if (!name.territory.empty()) add(name.language + '-' + name.territory);
    add(name.language);
  }
  std::string header = tags.front();
  for (std::size_t i = 1; i < tags.size(); ++i) {
    header += ',' + tags[i] + ";q=0." + std::to_string(10 - i);
  }
  return header;
}

}  // namespace wayfell
