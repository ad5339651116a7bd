// What someone who mistyped a word may have meant.
#pragma once

#include <string>
#include <string_view>

#include "hosts/commandline/CommandLine.h"

namespace wayfell {

/// "; did you mean today?" for "tday": of the words the nearest in either case, the first of
/// several. Empty when none is near.
std::string didYouMean(std::string_view typed, const Words& words);

}  // namespace wayfell
