#include "platform/NSBundle.h"

#include "platform/Host.h"

namespace wayfell {

std::string_view NSBundle::localizedStringForKeyValueTable(std::string_view key,
                                                           std::string_view value) const {
  Host* const host = Host::installed();
  const auto translation = host ? host->stringTable().find(key) : std::nullopt;
  if (translation) return *translation;
  return value.empty() ? key : value;
}

std::string_view localized(std::string_view key) {
  return NSBundle::mainBundle().localizedStringForKeyValueTable(key, "");
}

std::string_view localizedFormat(std::string_view key) {
  const std::string_view format = localized(key);
  // Without a translation the key itself comes back, and there is nothing to compare.
  if (format.data() == key.data()) return key;
  return formatsTakeSameArguments(format, key) ? format : key;
}

}  // namespace wayfell
