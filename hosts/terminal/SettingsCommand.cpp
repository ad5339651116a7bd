#include "hosts/terminal/SettingsCommand.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "hosts/settings/KnownSettings.h"
#include "hosts/settings/SettingJson.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/IsoTime.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using Access = SqliteStore::Access;
using State = SqliteStore::State;
using Read = KnownSetting::Read;

std::string jsonLine(const std::string& key, const PropertyValue& value) {
  JsonWriter line;
  line.beginObject().member("key", key).member("type", typeName(value)).key("value");
  const std::string_view type = typeName(value);
  if (type == "list" || type == "dictionary") {
    writeExactJson(line, value);
  } else {
    writePlainJson(line, value);  // the type stands beside it
  }
  return line.endObject().text();
}

// None for a key that the widget does not read there.
const KnownSetting* settingOf(StoreChoice store, const std::string& key) {
  const KnownSetting* const setting = knownSetting(key);
  if (setting == nullptr || store == StoreChoice::cloud) return nullptr;
  const bool there = store == StoreChoice::suite
                         ? setting->read != Read::own
                         : setting->read == Read::own || setting->read == Read::copied;
  return there ? setting : nullptr;
}

std::string noteOn(StoreChoice store, const std::string& key, const PropertyValue& value) {
  const KnownSetting* const setting = settingOf(store, key);
  if (setting != nullptr && misfitOf(*setting, value)) return *misfitOf(*setting, value);
  if (const auto date = value.dateValue()) return isoTimeOf(*date);
  return setting != nullptr ? meaningOf(*setting, value) : "";
}

// Key, type, value, and what the value means to the widget.
using Row = std::array<std::string, 4>;

void printTable(const std::vector<Row>& rows, Output& output) {
  constexpr int kWidest = 32;  // columns that a long value makes the others wait for
  std::array<int, 3> widths = {};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], std::min(columnsOf(row[i]), kWidest));
    }
  }
  const int columns = outputColumns();
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      line += row[i] + repeated(" ", widths[i] - columnsOf(row[i]) + 2);
    }
    line += row.back();
    line.erase(line.find_last_not_of(' ') + 1);
    output.line(fitted(line, columns));
  }
}

int list(const SettingsCommand& command, const SqliteStore& store) {
  Output output;
  std::vector<Row> rows;
  for (const auto& [key, value] : store.values()) {
    if (command.json) {
      output.line(jsonLine(key, value));
    } else {
      rows.push_back({printable(key), std::string(typeName(value)), printable(textOf(value)),
                      noteOn(command.store, key, value)});
    }
  }
  printTable(rows, output);
  if (store.values().empty()) {
    remark(store.file().string() +
           (store.state() == State::missing ? ": not there yet" : ": no settings in it"));
  }
  return output.finish(kDone);
}

void complainOfMissing(const SettingsCommand& command, const SqliteStore& store) {
  complain(nameOf(command.store) + " have no " + inQuotes(command.key) + " (" +
           store.file().string() + ')');
}

int get(const SettingsCommand& command, const SqliteStore& store) {
  const PropertyValue* const value = store.find(command.key);
  if (value == nullptr) {
    complainOfMissing(command, store);
    return kBadInput;
  }
  Output output;
  const std::string text = textOf(*value);
  output.line(command.json         ? jsonLine(command.key, *value)
              : outputIsTerminal() ? printable(text)
                                   : text);
  return output.finish(kDone);
}

// What the user might not expect of it.
void complainOfMisfit(const SettingsCommand& command, const PropertyValue& value) {
  const KnownSetting* const setting = settingOf(command.store, command.key);
  const std::string beginning = command.key + ": set, ";
  if (setting == nullptr && knownSetting(command.key) != nullptr) {
    const bool suite = command.store == StoreChoice::suite;
    complain(beginning + "but the widget reads it from " +
             nameOf(suite ? StoreChoice::local : StoreChoice::suite));
  }
  if (setting == nullptr) return;
  if (const auto misfit = misfitOf(*setting, value)) complain(beginning + "but " + *misfit);
  if (command.store == StoreChoice::local && setting->read == Read::copied) {
    complain(beginning + "until a panel that appears copies the shared setting over it");
  }
}

void remarkOnPanel(const SettingsCommand& command) {
  const KnownSetting* const setting = settingOf(command.store, command.key);
  if (command.store != StoreChoice::suite || setting == nullptr) return;
  remark(setting->read == Read::live ? "a running panel shows the change within half a second"
                                     : "a running panel shows the change when it next appears");
}

PropertyValue valueOfCommand(const SettingsCommand& command) {
  if (!isUtf8(command.key) || !isUtf8(command.value)) throw BadValue("not UTF-8");
  return command.type ? valueOf(*command.type, command.value) : valueOfUntyped(command.value);
}

// Rather a slip than meant, unless the user names the type.
bool isOfWrongType(const SettingsCommand& command, const PropertyValue& value) {
  const KnownSetting* const setting = settingOf(command.store, command.key);
  if (command.type || setting == nullptr || hasFittingType(*setting, value)) return false;
  complain(command.key + ": " + misfitOf(*setting, value).value_or(""));
  complainMore("nothing is saved; --type " + std::string(typeName(value)) + " would save it");
  return true;
}

int set(const SettingsCommand& command) {
  if (command.key.empty()) {
    complain("a key cannot be empty");
    return kBadInput;
  }
  std::optional<PropertyValue> value;
  try {
    value = valueOfCommand(command);
  } catch (const BadValue& error) {
    complain(command.key + ": " + error.what());
    return kBadInput;
  }
  if (isOfWrongType(command, *value)) return kBadInput;
  SqliteStore store = openStore(command.store, Access::readWrite);
  const int status = save({{command.key, value}}, store);
  if (status == kDone) {
    complainOfMisfit(command, *value);
    remarkOnPanel(command);
  }
  return status;
}

int unset(const SettingsCommand& command) {
  SqliteStore store = openStore(command.store, Access::readWrite);
  if (store.state() == State::unreadable) return kBadInput;
  if (store.find(command.key) == nullptr) {
    complainOfMissing(command, store);
    return kBadInput;
  }
  const int status = save({{command.key, std::nullopt}}, store);
  if (status == kDone) remarkOnPanel(command);
  return status;
}

template <class Answer>
int read(const SettingsCommand& command, Answer answer) {
  const SqliteStore store = openStore(command.store, Access::readOnly);
  const bool nothing = store.values().empty() && store.state() == State::unreadable;
  return nothing ? kBadInput : answer(command, store);
}

}  // namespace

int runSettings(const SettingsCommand& command) {
  switch (command.action) {
    case SettingsCommand::Action::list:
      return read(command, list);
    case SettingsCommand::Action::get:
      return read(command, get);
    case SettingsCommand::Action::set:
    case SettingsCommand::Action::unset:
      break;
  }
  if (command.store == StoreChoice::cloud) {
    complain("the cloud's settings are only read: whoever fetches them writes them");
    return kBadUsage;
  }
  return command.action == SettingsCommand::Action::set ? set(command) : unset(command);
}

}  // namespace wayfell
