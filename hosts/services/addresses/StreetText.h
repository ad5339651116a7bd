// The parts of an address for people: how countries write a street on one line, and what is
// missing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// Number and street, or the one that is not empty; none for neither. Where the number stands first
/// ("10 Rue Daru", not "Hauptstr. 10") the country says: a code of ISO 3166-1, two letters in
/// either case. Where it is unknown the street comes first, as in most countries.
std::optional<std::string> streetText(std::string_view number, std::string_view street,
                                      std::string_view countryCode);

/// None for an empty text.
std::optional<std::string> textOrNone(std::string_view text);

/// Whether it is a country's code of ISO 3166-1, in either case.
bool isCountryCode(std::string_view text);

}  // namespace wayfell
