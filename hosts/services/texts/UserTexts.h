// Which languages the user reads, and where the program's catalogues are, by the environment.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace wayfell {

/// Names of languages, best first, as catalogues go by them ("de_AT", "sr@latin"): those of
/// LANGUAGE or the one of LC_ALL, LC_MESSAGES or LANG, the first of them that is set. None in the
/// locale "C"; what names no language is left out, and so is what follows English, which the keys
/// themselves are in.
std::vector<std::string> userLanguages();

/// WAYFELL_LOCALEDIR, or else share/locale beside the program, as in a build tree, or else beside
/// the folder that the program is in, as where it is installed.
std::filesystem::path catalogueFolder();

}  // namespace wayfell
