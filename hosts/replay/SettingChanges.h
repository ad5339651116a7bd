// Changes of settings, as a recording or a command line has them.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "hosts/replay/Event.h"
#include "hosts/text/JsonFields.h"

namespace wayfell {

/// Members of an object; null removes a key. Throws InputError for anything else.
event::Settings expectSettings(JsonLine::Value value, const FieldPath& path);

/// "KEY=VALUE", the value without a type (see valueOfUntyped). Throws InputError without a key, and
/// for what is not UTF-8.
event::Settings settingOfText(std::string_view text);

/// In the local store a number under "addressDate" is a date in seconds since the reference date,
/// the way snapshots print it; the widget reads nothing else there.
void makeAddressDate(event::Settings& settings);

}  // namespace wayfell
