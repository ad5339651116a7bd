// The languages that names of places are asked for in.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// The value of an HTTP header Accept-Language for a locale ("de_AT.UTF-8") and a list of languages
/// that goes before it ("de_AT:fr", or empty), as gettext reads them: "de-AT,de;q=0.9,fr;q=0.8".
/// Empty for the locales C and POSIX, which have no language, and for what is no locale.
std::string acceptLanguage(std::string_view locale, std::string_view languages);
/// The user's: of the environment variables LC_ALL, LC_MESSAGES, LANG and LANGUAGE.
std::string usersAcceptLanguage();

}  // namespace wayfell
