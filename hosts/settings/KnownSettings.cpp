#include "hosts/settings/KnownSettings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <variant>

#include "datums/Catalogue.h"
#include "hosts/settings/SettingValue.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

using Kind = KnownSetting::Kind;
using Read = KnownSetting::Read;

constexpr KnownSetting kSettings[] = {
    {"units", Kind::integer, Read::copied, "", {"imperial", "metric", "nautical"}, 0, 2},
    {"coordinateUnits", Kind::integer, Read::copied, "", {"Dec", "Dm", "DMs", "MGRS", "UTM"}, 0, 4},
    {"speed", Kind::integer, Read::copied, "", {"auto", "pace", "speed"}, 0, 2},
    {"useMils", Kind::boolean, Read::copied, "", {"degrees", "mils"}},
    {"compassHeading",
     Kind::integer,
     Read::copied,
     "true north, or magnetic",
     {"true", "magnetic"}},
    {"rotateMap", Kind::boolean, Read::copied, "for the app's map"},
    {"mapCompassType", Kind::integer, Read::copied, "for the app's map"},
    {"hasWaypoint", Kind::boolean, Read::appearance, "", {"no waypoint", "a waypoint"}},
    {"waypointLatitude", Kind::real, Read::appearance, "degrees", {}, -90, 90},
    {"waypointLongitude", Kind::real, Read::appearance, "degrees", {}, -180, 180},
    {"distance", Kind::real, Read::live, "metres of the track", {}, 0},
    {"time", Kind::real, Read::live, "seconds of the track", {}, 0},
    {"viewHidden", Kind::boolean, Read::appearance, "", {"expanded", "compact"}},
    {"widgetAddressString", Kind::text, Read::appearance, "the last address found"},
    {"angleUnits", Kind::integer, Read::own, "", {"degrees", "mils"}, 0, 1},
    {"utmType", Kind::integer, Read::own, "", {"hemispheres", "bands"}, 0, 1},
    {"selectedDatum", Kind::datum, Read::own, "datum of positions"},
    {"addressDate", Kind::date, Read::own, "the last address lookup"},
};

// As a typed read of the kind gives it.
std::string readAs(Kind kind, const PropertyValue& value) {
  switch (kind) {
    case Kind::boolean:
      return value.boolValue() ? "true" : "false";
    case Kind::integer:
      return std::to_string(value.integerValue());
    case Kind::real:
      return shortestText(value.doubleValue());
    case Kind::text:
    case Kind::datum:
      return value.stringValue() ? inQuotes(*value.stringValue()) : "none";
    case Kind::date:
      break;
  }
  return "none";
}

// "0 imperial, 1 metric, 2 nautical"; empty where numbers have no names.
std::string namedNumbersOf(const KnownSetting& setting) {
  const auto names = namesOf(setting);
  std::string named;
  for (std::size_t i = 0; i < names.size(); ++i) {
    named += (i == 0 ? "" : ", ") + std::to_string(i) + ' ' + std::string(names[i]);
  }
  return named;
}

std::string rangeOf(const KnownSetting& setting) {
  if (std::string named = namedNumbersOf(setting); !named.empty()) return named;
  const std::string lowest = shortestText(setting.lowest);
  if (std::isinf(setting.greatest)) return lowest + " and more";
  return lowest + " to " + shortestText(setting.greatest);
}

bool isDatum(std::string_view name) {
  return std::any_of(kDatums.begin(), kDatums.end(),
                     [name](const CatalogueDatum& datum) { return datum.name == name; });
}

}  // namespace

std::span<const KnownSetting> knownSettings() { return kSettings; }

const KnownSetting* knownSetting(std::string_view key) {
  const auto* const found =
      std::find_if(std::begin(kSettings), std::end(kSettings),
                   [key](const KnownSetting& setting) { return setting.key == key; });
  return found == std::end(kSettings) ? nullptr : found;
}

std::span<const std::string_view> namesOf(const KnownSetting& setting) {
  const auto* const end =
      std::find(setting.numbers.begin(), setting.numbers.end(), std::string_view());
  return {setting.numbers.begin(), end};
}

std::string aboutOf(const KnownSetting& setting) {
  return setting.about.empty() ? namedNumbersOf(setting) : std::string(setting.about);
}

std::vector<SettingChoice> choicesOf(const KnownSetting& setting) {
  if (setting.kind == Kind::boolean) {
    return {{"false", std::string(setting.numbers[0])}, {"true", std::string(setting.numbers[1])}};
  }
  std::vector<SettingChoice> choices;
  for (const std::string_view name : namesOf(setting)) {
    choices.push_back({std::string(name), std::to_string(choices.size())});
  }
  return choices;
}

PropertyValue valueUnder(std::string_view key, std::string_view text) {
  const KnownSetting* const setting = knownSetting(key);
  if (setting == nullptr) return valueOfUntyped(text);
  const bool isBoolean = setting->kind == Kind::boolean;
  const auto names = namesOf(*setting);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (upperCased(names[i]) != upperCased(text)) continue;
    return isBoolean ? PropertyValue(i == 1) : PropertyValue(static_cast<std::int64_t>(i));
  }
  const auto boolean = isBoolean ? booleanOfWord(text) : std::nullopt;
  return boolean ? PropertyValue(*boolean) : valueOfUntyped(text);
}

std::string defaultOf(const KnownSetting& setting) {
  if (!setting.numbers[0].empty()) return std::string(setting.numbers[0]);
  switch (setting.kind) {
    case Kind::boolean:
      return "false";
    case Kind::integer:
    case Kind::real:
      return "0";
    case Kind::datum:
      return std::string(kDatums.front().name);
    case Kind::text:
    case Kind::date:
      break;
  }
  return "none";
}

std::string meaningOf(const KnownSetting& setting, const PropertyValue& value) {
  const bool yes = value.boolValue();
  const std::int64_t number = setting.kind != Kind::boolean ? value.integerValue() : yes ? 1 : 0;
  const bool named = number >= 0 && number < std::ssize(setting.numbers);
  const std::string_view name = named ? setting.numbers[static_cast<std::size_t>(number)] : "";
  return std::string(name.empty() ? setting.about : name);
}

bool hasFittingType(const KnownSetting& setting, const PropertyValue& value) {
  const PropertyValue::Storage& stored = value.storage();
  const bool integer = std::holds_alternative<std::int64_t>(stored);
  switch (setting.kind) {
    case Kind::boolean:
      return integer || std::holds_alternative<bool>(stored);
    case Kind::integer:
      return integer;
    case Kind::real:
      return integer || std::holds_alternative<double>(stored);
    case Kind::text:
    case Kind::datum:
      return std::holds_alternative<std::string>(stored);
    case Kind::date:
      break;
  }
  return std::holds_alternative<NSDate>(stored);
}

std::optional<std::string> misfitOf(const KnownSetting& setting, const PropertyValue& value) {
  if (!hasFittingType(setting, value)) {
    return "the widget reads this " + std::string(typeName(value)) + " as " +
           readAs(setting.kind, value);
  }
  if (setting.kind == Kind::datum && !isDatum(*value.stringValue())) {
    return "\"wayfell datums\" lists no such name";
  }
  const double number = value.doubleValue();
  if (!(number >= setting.lowest && number <= setting.greatest)) {
    return "the widget knows only " + rangeOf(setting);
  }
  return std::nullopt;
}

}  // namespace wayfell
