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

struct CompiledCatalogue {
  /// Null, or what is wrong with the bytes, said of "it"; there are no texts then.
  const char* fault = nullptr;
  /// In the order of the file. Views of the bytes that it was read from.
  std::vector<CatalogueText> texts;
};

/// Reads a catalogue in either byte order. At fault is one in which something lies outside or
/// overlaps, and one that is not in UTF-8 by its header. The texts themselves are not judged.
CompiledCatalogue readCompiledCatalogue(std::string_view bytes);

}  // namespace wayfell
