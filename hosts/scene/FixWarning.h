// What to say of the fix that the panel shows, so that nobody takes an old one for fresh.
#pragma once

#include <string>

namespace wayfell {

/// "no fix yet"
std::string noFixText();

/// A fix that is no older needs no mention.
bool isFreshFix(double seconds);

/// "fix 12 s old", "fix 4 min old", as people tell ages: never more than in the unit that fits.
/// Empty for a fresh one.
std::string fixAgeText(double seconds);

}  // namespace wayfell
