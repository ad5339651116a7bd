// How a command line may go on, from its description: for shells, which ask at each press of Tab.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/commandline/CommandLine.h"

namespace wayfell {

struct Completions {
  Words words;
  /// What the shell is to list besides, and what the word begins with before that: "--to=".
  Listed listed = Listed::nothing;
  std::string prefix;
};

/// What the word that is being typed may become, behind these words of the command line. Words
/// that do not begin with what is typed are among them: shells differ in how they choose.
Completions completionsAt(const Command& program, const std::vector<std::string>& before,
                          const std::string& typed);

/// `completions`: prints what makes a shell complete the program's command line. The program must
/// outlive it.
Command completionsOptions(const Command& program);

}  // namespace wayfell
