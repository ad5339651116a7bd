// What to say of the fix that the panel shows, so that nobody takes an old one for fresh or waits
// for one without knowing why.
#pragma once

#include <optional>
#include <string>

#include "widget/TodayViewController.h"

namespace wayfell {

/// A fix of so many seconds that needs no mention.
bool isFreshFix(double seconds);

/// "no fix yet", "fix 12 s old, no contact", "fix too inaccurate: 185 m", "no altitude"; empty
/// where the panel shows a fresh fix. The age in seconds is that of the fix it shows, if any; the
/// trouble is why its source delivers none, in a few words. Where the source delivers, it is the
/// panel that may refuse what comes.
std::string fixWarning(const TodayViewController& widget, std::optional<double> age,
                       const std::string& trouble = {});

}  // namespace wayfell
