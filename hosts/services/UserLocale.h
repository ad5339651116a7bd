// Which languages the user reads, as the environment tells: for texts and for names of places.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

/// The values of the environment's variables.
struct UserLocale {
  std::string locale;     ///< LC_ALL, LC_MESSAGES or LANG: the first that is not empty, or else "C"
  std::string languages;  ///< LANGUAGE: a list that goes before it, best first; may be empty
};

UserLocale userLocale();

/// "sr_RS.UTF-8@latin" is Serbian, of Serbia, in Latin letters.
struct LocaleName {
  std::string language;   ///< two or three small letters
  std::string territory;  ///< two or three capitals or digits, or empty
  std::string modifier;   ///< letters and digits, or empty
};

/// The names in a list with colons between them, or in one name. "C", "POSIX" and whatever names no
/// language are left out.
std::vector<LocaleName> localeNames(std::string_view list);

/// The value of an HTTP header Accept-Language: "de-AT,de;q=0.9,fr;q=0.8" for the locale "fr" and
/// the languages "de_AT". Empty in a locale without a language, such as "C".
std::string acceptLanguage(const UserLocale& user);

}  // namespace wayfell
