// `wayfell settings`: reads and writes the settings on disk, as the containing app does.
#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "hosts/commandline/DidYouMean.h"
#include "hosts/settings/KnownSettings.h"
#include "hosts/settings/SettingJson.h"
#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/SettingsTable.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

constexpr const char* kSettingsMore =
    "Without an option these are the settings that the app shares with the widget. A running panel "
    "shows \"distance\" and \"time\" within half a second, all others when it next appears.\n"
    "\n"
    "Examples:\n"
    "  wayfell settings list\n"
    "  wayfell settings set units metric\n"
    "  wayfell settings get units\n"
    "  wayfell settings --local set selectedDatum 'Adindan---Sudan'\n"
    "  wayfell settings unset widgetAddressString\n"
    "Exit status: 0 done, 1 there is no such key, the value is bad or was not saved, 2 the command "
    "line is wrong.";

constexpr const char* kSetMore =
    "Values may be named as \"wayfell settings list\" names them: metric, MGRS, compact; or yes, "
    "no, "
    "on and off. Else, without --type, a JSON number, true or false keeps its type, and all else "
    "is "
    "text.\n"
    "\n"
    "A key that the widget does not read, and a type that it can make nothing of, are refused "
    "without --type: other programs may store what they like.\n"
    "\n"
    "With --type a boolean is true, yes, on, 1, false, no, off or 0; a date is in ISO 8601, or in "
    "seconds since 2001-01-01 00:00 UTC; data are in base64, lists and dictionaries in JSON.\n"
    "\n"
    "Examples:\n"
    "  wayfell settings set coordinateUnits mgrs\n"
    "  wayfell settings set useMils yes\n"
    "  wayfell settings set --type text note 12";

using Access = SqliteStore::Access;
using State = SqliteStore::State;
using Read = KnownSetting::Read;

// What the command line asks for.
struct SettingsCommand {
  StoreChoice store = StoreChoice::suite;
  std::string key;
  std::string value;
  // As the stores name it; without one, see valueUnder().
  std::optional<std::string> type;
  bool json = false;
};

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

int list(const SettingsCommand& command) {
  const SqliteStore store = openStore(command.store, Access::readOnly);
  if (store.values().empty() && store.state() == State::unreadable) return kBadInput;
  Output output;
  if (command.json) {
    for (const auto& [key, value] : store.values()) output.line(jsonLine(key, value));
  } else {
    printSettings(command.store, store, output);
  }
  if (store.values().empty()) {
    remark(store.file().string() +
           (store.state() == State::missing ? ": not there yet" : ": no settings in it"));
  }
  return output.finish(kDone);
}

void complainOfMissing(const SettingsCommand& command, const SqliteStore& store) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : store.values()) keys.push_back(key);
  complain(nameOf(command.store) + " have no " + inQuotes(command.key) + " (" +
           store.file().string() + ')' + didYouMean(command.key, wordsOf(keys)));
}

int get(const SettingsCommand& command) {
  const SqliteStore store = openStore(command.store, Access::readOnly);
  if (store.values().empty() && store.state() == State::unreadable) return kBadInput;
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
  return command.type ? valueOf(*command.type, command.value)
                      : valueUnder(command.key, command.value);
}

Words knownKeys() {
  Words keys;
  for (const KnownSetting& setting : knownSettings()) {
    keys.push_back({std::string(setting.key), aboutOf(setting)});
  }
  return keys;
}

// Those that make sense.
Words valuesUnder(const KnownSetting& setting) {
  Words values;
  for (const auto& [value, meaning] : choicesOf(setting)) values.push_back({value, meaning});
  return values;
}

// The one that is near, or else all of them.
std::string meantAmong(const Words& values, const std::string& typed) {
  std::string meant = didYouMean(typed, values);
  if (!meant.empty() || values.empty()) return meant;
  for (const Word& value : values) meant += (meant.empty() ? "; it knows " : ", ") + value.text;
  return meant;
}

// What looks rather like a slip than meant; the user means it who names the type.
std::optional<std::string> slipIn(const SettingsCommand& command, const PropertyValue& value) {
  if (command.type) return std::nullopt;
  if (knownSetting(command.key) == nullptr) {
    return inQuotes(command.key) + " is no setting of the widget" +
           didYouMean(command.key, knownKeys());
  }
  const KnownSetting* const setting = settingOf(command.store, command.key);
  if (setting == nullptr || hasFittingType(*setting, value)) return std::nullopt;
  return command.key + ": " + misfitOf(*setting, value).value_or("") +
         meantAmong(valuesUnder(*setting), command.value);
}

bool isSlip(const SettingsCommand& command, const PropertyValue& value) {
  const auto slip = slipIn(command, value);
  if (!slip) return false;
  complain(*slip);
  complainMore("nothing is saved; --type " + std::string(typeName(value)) + " would save it");
  return true;
}

bool isOnlyRead(StoreChoice store) {
  if (store != StoreChoice::cloud) return false;
  complain("the cloud's settings are only read: whoever fetches them writes them");
  return true;
}

int set(const SettingsCommand& command) {
  if (isOnlyRead(command.store)) return kBadUsage;
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
  if (isSlip(command, *value)) return kBadInput;
  SqliteStore store = openStore(command.store, Access::readWrite);
  const int status = save({{command.key, value}}, store);
  if (status == kDone) {
    complainOfMisfit(command, *value);
    remarkOnPanel(command);
  }
  return status;
}

int unset(const SettingsCommand& command) {
  if (isOnlyRead(command.store)) return kBadUsage;
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

// Those that stand where the words of the command line say.
Words keysAfter(const std::vector<std::string>& before) {
  const bool isLocal = std::count(before.begin(), before.end(), "--local") > 0;
  Words keys = knownKeys();
  const auto isElsewhere = [](const Word& key) {
    return knownSetting(key.text)->read == Read::own;
  };
  if (!isLocal) std::erase_if(keys, isElsewhere);
  return keys;
}

// Offers the values of the key that stands just before.
Words valuesAfter(const std::vector<std::string>& before) {
  const KnownSetting* const setting = before.empty() ? nullptr : knownSetting(before.back());
  return setting == nullptr ? Words() : valuesUnder(*setting);
}

}  // namespace

Command settingsCommand() {
  const auto command = std::make_shared<SettingsCommand>();
  const auto store = [&command](const char* name, const char* help, StoreChoice choice) {
    return Option{
        .name = name, .help = help, .target = [command, choice] { command->store = choice; }};
  };
  const auto action = [&command](const char* name, const char* help, auto run,
                                 const std::vector<Option>& options) {
    return Command{.name = name, .help = help, .options = options, .run = [command, run] {
                     return run(*command);
                   }};
  };
  const Option key = {.name = "KEY",
                      .help = "Its name",
                      .target = &command->key,
                      .offered = keysAfter,
                      .isRequired = true};
  const Option value = {.name = "VALUE",
                        .help = "What it is to be",
                        .target = &command->value,
                        .offered = valuesAfter,
                        .isRequired = true};
  const Option type = {"--type", "boolean, integer, real, text, date, data, list or dictionary",
                       &command->type, "TYPE",
                       wordsOf(std::array{"boolean", "integer", "real", "text", "date", "data",
                                          "list", "dictionary"})};
  const Option json = jsonOption(command->json);
  Command writing = action("set", "Write one", set, {key, value, type});
  writing.more = kSetMore;
  return {
      .name = "settings",
      .help = "Reads and writes the settings that are kept on disk",
      .more = kSettingsMore,
      .options = {store("--suite", "Those that the app shares with the widget (if none)",
                        StoreChoice::suite),
                  store("--local", "The widget's own", StoreChoice::local),
                  store("--cloud", "Those of the cloud, which are only read", StoreChoice::cloud)},
      .commands = {action("list", "Print all of them, set or not: what they are, and the defaults",
                          list, {json}),
                   action("get", "Print the value of one", get, {key, json}), writing,
                   action("unset", "Remove one", unset, {key})},
      .sharesOptions = true,
      .alternatives = {"--suite", "--local", "--cloud"}};
}

}  // namespace wayfell
