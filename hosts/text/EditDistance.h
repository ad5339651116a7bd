// How far two words are from each other, for finding what someone who mistyped one has meant.
#pragma once

#include <cstddef>
#include <string_view>

namespace wayfell {

/// How many letters have to be put in, taken out, changed, or swapped with the next one
/// (Damerau-Levenshtein; what was swapped is not changed further). Letters are bytes.
std::size_t editDistance(std::string_view one, std::string_view other);

/// The distance up to which a word of so many letters may pass for a slip.
std::size_t greatestSlip(std::size_t letters);

}  // namespace wayfell
