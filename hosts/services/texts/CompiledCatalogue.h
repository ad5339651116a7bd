// Reads what msgfmt compiles: gettext's .mo files, as its manual describes them in "The Format of
// GNU MO Files".
#pragma once

#include <string_view>
#include <vector>

namespace wayfell {

struct CatalogueText {
  std::string_view key;          ///< of a plural the singular
  std::string_view translation;  ///< of a plural the first form
};

/// Reads a catalogue in either byte order: its texts in the order of the file, which are views of
/// the bytes. Throws InputError, said of "it", for one in which something lies outside or overlaps,
/// and one that is not in UTF-8 by its header. The texts themselves are not judged.
std::vector<CatalogueText> readCompiledCatalogue(std::string_view bytes);

}  // namespace wayfell
