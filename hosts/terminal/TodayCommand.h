// `wayfell today`: the panel in a terminal, live or on a recording.
#pragma once

#include "hosts/live/OpenSource.h"

namespace wayfell {

/// Shows the panel until the user quits or a signal ends it, which then ends the process. Where
/// there is no terminal to show it on, prints it once, as it stands at the first fix. Throws
/// InputError for what cannot be read. Returns the status to exit with (see ExitStatus.h).
int runToday(const Sources& sources, const SourceWishes& wishes);

}  // namespace wayfell
