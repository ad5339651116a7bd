// The settings of a store as a table for people.
#pragma once

#include <string>

#include "hosts/settings/KnownSettings.h"
#include "hosts/terminal/ChosenStore.h"
#include "hosts/terminal/Output.h"

namespace wayfell {

/// None for a key that the widget does not read there.
const KnownSetting* settingOf(StoreChoice store, const std::string& key);

/// Prints a line for each setting that the widget reads there, set or not, and then those of
/// others: key, type, value, and what that means. It fits 80 columns, but for long values.
void printSettings(StoreChoice choice, const SqliteStore& store, Output& output);

}  // namespace wayfell
