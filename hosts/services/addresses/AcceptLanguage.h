// The languages that names of places are asked for in.
#pragma once

#include <string>

#include "hosts/services/UserLocale.h"

namespace wayfell {

/// The value of an HTTP header Accept-Language: "de-AT,de;q=0.9,fr;q=0.8" for the locale "fr" and
/// the languages "de_AT". Empty in a locale without a language, such as "C".
std::string acceptLanguage(const UserLocale& user);

}  // namespace wayfell
