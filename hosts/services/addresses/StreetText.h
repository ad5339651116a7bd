// How countries write a street address on one line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// Whether the number stands before the street: "10 Rue Daru", not "Hauptstr. 10". The code is that
/// of ISO 3166-1, two letters in either case. Where it is unknown the street comes first, as in
/// most countries.
bool numberComesFirst(std::string_view countryCode);

/// Number and street in the order of the country, or the one that is not empty; none for neither.
std::optional<std::string> streetText(std::string_view number, std::string_view street,
                                      std::string_view countryCode);

/// Whether it is two letters A to Z, in either case.
bool isCountryCode(std::string_view text);

}  // namespace wayfell
