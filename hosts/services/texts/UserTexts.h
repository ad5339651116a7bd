// The texts in the user's language: which catalogues they are, and where they lie, by the
// environment.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/services/texts/CatalogueTexts.h"

namespace wayfell {

/// All of the user's catalogues that the program has.
CatalogueTexts userTexts(const Warn& warn);

/// Names of languages, best first, as catalogues go by them ("de_AT", "sr@latin"): those of
/// LANGUAGE, or else the one of the locale. None in the locale "C", where LANGUAGE does not count;
/// and none after English, which the keys themselves are in.
std::vector<std::string> userLanguages();

/// WAYFELL_LOCALEDIR, or else share/locale beside the program, as in a build tree, or else beside
/// the folder that the program is in, as where it is installed.
std::filesystem::path catalogueFolder();

/// What is in FOLDER/LANGUAGE/LC_MESSAGES/wayfell.mo of the languages, best first; "de_AT" means
/// "de" too. Warns of files that cannot be used. The files are not needed any more.
CatalogueTexts textsIn(const std::filesystem::path& folder,
                       const std::vector<std::string>& languages, const Warn& warn);

}  // namespace wayfell
