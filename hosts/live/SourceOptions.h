// What every program's command line has about the source of positions.
#pragma once

#include <vector>

#include "hosts/commandline/CommandLine.h"
#include "hosts/live/OpenSource.h"

namespace wayfell {

/// Adds --source with its shorthands and what is for recordings, and puts first below the options
/// what sources there are. All that is given must live on.
void addSourceOptions(Command& command, const Sources& sources, SourceWishes& wishes);

/// --suite and --local, with which a recording begins.
std::vector<Option> firstSettingsOptions(FirstSettings& settings);

}  // namespace wayfell
