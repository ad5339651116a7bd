#include "hosts/terminal/SettingsTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "hosts/settings/SettingValue.h"
#include "hosts/text/IsoTime.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

// What the value means, and what the widget goes by without one.
std::string noteOn(const KnownSetting& setting, const PropertyValue& value) {
  const std::string meaning = meaningOf(setting, value);
  const std::string fallback = defaultOf(setting);
  return meaning + (meaning == fallback ? " (default)" : " (default " + fallback + ')');
}

std::string noteOn(StoreChoice store, const std::string& key, const PropertyValue& value) {
  const KnownSetting* const setting = settingOf(store, key);
  if (setting != nullptr && misfitOf(*setting, value)) return *misfitOf(*setting, value);
  if (const auto date = value.dateValue()) return isoTimeOf(*date);
  return setting != nullptr ? noteOn(*setting, value) : "";
}

std::string noteOnUnset(const KnownSetting& setting) {
  const std::string fallback = defaultOf(setting);
  if (setting.numbers[0].empty()) return aboutOf(setting) + " (default " + fallback + ')';
  std::string note = fallback + " (default)";
  for (const std::string_view name : namesOf(setting).subspan(1)) note.append(", ").append(name);
  return note;
}

// Key, type, value, and what the value means to the widget.
using Row = std::array<std::string, 4>;

void printTable(const std::vector<Row>& rows, Output& output) {
  constexpr std::array kWidest = {24, 10, 12};  // longer ones make no others wait
  std::array<int, 3> widths = {};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], std::min(columnsOf(row[i]), kWidest[i]));
    }
  }
  const int columns = outputColumns();
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const int missing = std::max(0, widths[i] - columnsOf(row[i]));
      if (widths[i] > 0) line += row[i] + repeated(" ", missing + 2);
    }
    line += row.back();
    line.erase(line.find_last_not_of(' ') + 1);
    output.line(fitted(line, columns));
  }
}

// The widget's settings, set or not, and then those of others.
std::vector<Row> rowsOf(StoreChoice choice, const SqliteStore& store) {
  std::vector<Row> rows;
  const auto add = [&](const std::string& key, const PropertyValue& value) {
    rows.push_back({printable(key), std::string(typeName(value)), printable(textOf(value)),
                    noteOn(choice, key, value)});
  };
  for (const KnownSetting& setting : knownSettings()) {
    const std::string key(setting.key);
    if (settingOf(choice, key) == nullptr) continue;
    if (const PropertyValue* const value = store.find(key)) {
      add(key, *value);
    } else {
      rows.push_back({key, "", "(not set)", noteOnUnset(setting)});
    }
  }
  for (const auto& [key, value] : store.values()) {
    if (settingOf(choice, key) == nullptr) add(key, value);
  }
  return rows;
}

}  // namespace

const KnownSetting* settingOf(StoreChoice store, const std::string& key) {
  const KnownSetting* const setting = knownSetting(key);
  if (setting == nullptr || store == StoreChoice::cloud) return nullptr;
  using Read = KnownSetting::Read;
  const bool there = store == StoreChoice::suite
                         ? setting->read != Read::own
                         : setting->read == Read::own || setting->read == Read::copied;
  return there ? setting : nullptr;
}

void printSettings(StoreChoice choice, const SqliteStore& store, Output& output) {
  printTable(rowsOf(choice, store), output);
}

}  // namespace wayfell
