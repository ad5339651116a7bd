#include "hosts/terminal/SettingText.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "hosts/services/stores/StoredValue.h"
#include "hosts/text/IsoTime.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

using Json = nlohmann::ordered_json;

std::optional<bool> booleanOf(std::string_view text) {
  const std::string word = upperCased(text);
  if (word == "TRUE" || word == "YES") return true;
  if (word == "FALSE" || word == "NO") return false;
  return std::nullopt;
}

std::optional<NSDate> dateOf(std::string_view text) {
  if (const auto date = dateOfIsoTime(text)) return date;
  return dateOfIsoTime(std::string(text) + "T00:00:00");
}

}  // namespace

PropertyValue typedValue(std::string_view type, std::string_view text) {
  if (type == "boolean") {
    if (const auto boolean = booleanOf(text)) return *boolean;
  }
  if (type == "date") {
    if (const auto date = dateOf(text)) return *date;
  }
  try {
    return valueOf(type, text);
  } catch (const BadValue&) {
    if (type != "date") throw;
    throw BadValue("it is no date in ISO 8601, nor seconds");
  }
}

Json jsonOf(const PropertyValue& value) {
  const std::string text = textOf(value);
  const std::string_view type = typeName(value);
  if (type == "text" || type == "data") return text;
  Json json = Json::parse(text, nullptr, false);
  return json.is_discarded() ? Json(text) : json;
}

}  // namespace wayfell
