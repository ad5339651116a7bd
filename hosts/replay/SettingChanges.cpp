#include "hosts/replay/SettingChanges.h"

#include "hosts/settings/SettingJson.h"
#include "hosts/text/InputError.h"
#include "hosts/text/Utf8.h"

namespace wayfell {

event::Settings expectSettings(JsonLine::Value value, const FieldPath& path) {
  expectObject(value, path);
  event::Settings settings;
  for (const JsonLine::Value& member : value) {
    const FieldPath memberPath(path, member.key());
    const auto [entry, isNew] = settings.emplace(member.key(), std::nullopt);
    if (!isNew) memberPath.fail("given twice");
    if (member.kind() != JsonLine::Kind::null)
      entry->second = expectSettingValue(member, memberPath);
  }
  return settings;
}

event::Settings settingOfText(std::string_view text) {
  if (!isUtf8(text)) throw InputError("not UTF-8");
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0) {
    throw InputError('"' + std::string(text) + "\" is not KEY=VALUE");
  }
  event::Settings settings;
  settings.emplace(text.substr(0, equals), valueOfUntyped(text.substr(equals + 1)));
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
