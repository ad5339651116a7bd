#include "hosts/replay/Settings.h"

#include "hosts/text/InputError.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

// Which of the texts are JSON numbers, true or false; none for the others.
std::optional<PropertyValue> numberOrBoolean(std::string_view text) {
  // Blanks, which JSON allows around a value, make it a text.
  if (text.empty() || text.front() <= ' ' || text.back() <= ' ') return std::nullopt;
  JsonLine line;
  try {
    line.parse(text);
  } catch (const InputError&) {
    return std::nullopt;
  }
  const JsonLine::Value value = line.root();
  if (value.isNumber() || value.kind() == JsonLine::Kind::boolean) {
    return expectProperty(value, FieldPath(""));
  }
  return std::nullopt;
}

}  // namespace

event::Settings expectSettings(JsonLine::Value value, const FieldPath& path) {
  expectObject(value, path);
  event::Settings settings;
  for (const JsonLine::Value& member : value) {
    const FieldPath memberPath(path, member.key());
    const auto [entry, isNew] = settings.emplace(member.key(), std::nullopt);
    if (!isNew) memberPath.fail("given twice");
    if (member.kind() != JsonLine::Kind::null) entry->second = expectProperty(member, memberPath);
  }
  return settings;
}

PropertyValue propertyOfText(std::string_view text) {
  return numberOrBoolean(text).value_or(PropertyValue(text));
}

event::Settings settingOfText(std::string_view text) {
  if (!isUtf8(text)) throw InputError("not UTF-8");
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0) {
    throw InputError('"' + std::string(text) + "\" is not KEY=VALUE");
  }
  event::Settings settings;
  settings.emplace(text.substr(0, equals), propertyOfText(text.substr(equals + 1)));
  return settings;
}

void makeAddressDate(event::Settings& settings) {
  const auto date = settings.find("addressDate");
  if (date == settings.end() || !date->second) return;
  const PropertyValue::Storage& stored = date->second->storage();
  if (std::holds_alternative<double>(stored) || std::holds_alternative<std::int64_t>(stored)) {
    date->second = PropertyValue(NSDate{date->second->doubleValue()});
  }
}

}  // namespace wayfell
