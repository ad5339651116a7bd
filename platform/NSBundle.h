// Localised texts: the English text is the key, and stands where there is no translation.
#pragma once

#include <string>
#include <string_view>

#include "platform/NSString.h"

namespace wayfell {

class NSBundle {
 public:
  static NSBundle mainBundle() { return {}; }

  /// The translation; without one, or a host, the value, or the key when the value is empty. Only
  /// the default table exists. The result lives as long as the arguments and the host's table.
  std::string_view localizedStringForKeyValueTable(std::string_view key,
                                                   std::string_view value) const;
};

/// Marks a key that reaches the functions below by way of a table or a choice, for tools/pot, which
/// collects the keys for translators.
constexpr const char* textKey(const char* key) { return key; }

/// The main bundle's text for a key.
std::string_view localized(std::string_view key);

/// The main bundle's format for a key, or the key itself when a translation does not take the
/// same arguments: a translation can spoil a text, never memory.
std::string_view localizedFormat(std::string_view key);

/// Fills the localised format.
template <class... Arguments>
std::string localizedStringWithFormat(std::string_view key, const Arguments&... arguments) {
  return stringWithFormat(localizedFormat(key), {FormatArgument(arguments)...});
}

/// These texts know which key has printed them. It has to outlive them.
inline FormattedText localizedText(std::string_view key) { return {key, localized(key)}; }
template <class... Arguments>
FormattedText localizedText(std::string_view key, const Arguments&... arguments) {
  return formattedText(key, localizedFormat(key), {FormatArgument(arguments)...});
}

}  // namespace wayfell
