// How the values of settings are written down.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "hosts/replay/Event.h"
#include "hosts/text/JsonFields.h"

namespace wayfell {

/// Members of an object; null removes a key. Throws InputError for anything else.
event::Settings expectSettings(JsonLine::Value value, const FieldPath& path);

/// A JSON number, true or false keeps its type, all else is text. It is UTF-8.
PropertyValue propertyOfText(std::string_view text);

/// "KEY=VALUE", the value as above. Throws InputError without a key, and for what is not UTF-8.
event::Settings settingOfText(std::string_view text);

/// In the local store a number under "addressDate" is a date in seconds since the reference date,
/// the way snapshots print it; the widget reads nothing else there.
void makeAddressDate(event::Settings& settings);

}  // namespace wayfell
