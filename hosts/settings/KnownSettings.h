// The settings that the widget reads, and what their values mean to it. All other keys of a store
// belong to the containing app.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/PropertyValue.h"

namespace wayfell {

struct KnownSetting {
  enum class Kind { boolean, integer, real, text, date, datum };
  /// When the widget reads it, and where.
  enum class Read {
    live,        ///< twice a second, from the shared settings
    appearance,  ///< when it appears, from the shared settings
    copied,      ///< likewise, to copy it over what its own settings have
    own,         ///< when it needs it, from its own settings
  };

  std::string_view key;
  Kind kind;
  Read read;
  std::string_view about;  ///< what it is; may be empty where its numbers say it
  /// What the numbers mean, from 0 on, in words that also stand for them; no and yes are 0 and 1.
  /// The first empty one ends them.
  std::array<std::string_view, 5> numbers = {};
  /// The values that the widget makes sense of lie between these.
  double lowest = -std::numeric_limits<double>::infinity();
  double greatest = std::numeric_limits<double>::infinity();
};

/// All of them, in the order in which people look for them.
std::span<const KnownSetting> knownSettings();

/// None for a key that the widget does not read.
const KnownSetting* knownSetting(std::string_view key);

/// What its numbers mean, from 0 on; empty where they have no names.
std::span<const std::string_view> namesOf(const KnownSetting& setting);

/// What it is, in a few words: "metres of the track", or else what its numbers mean: "0 imperial, 1
/// metric, 2 nautical".
std::string aboutOf(const KnownSetting& setting);

/// A value that makes sense, as it is typed.
struct SettingChoice {
  std::string value;    ///< "false", "true", "metric" ...
  std::string meaning;  ///< "1" for "metric", "mils" for "true"; may be empty
};
/// All of them, or none where they cannot be listed.
std::vector<SettingChoice> choicesOf(const KnownSetting& setting);

/// The value that a text stands for under a key. Where the widget reads the key that is, in either
/// case, what one of the numbers means ("metric" for 1 under "units"), and for booleans yes, no, on
/// and off. All else as valueOfUntyped.
PropertyValue valueUnder(std::string_view key, std::string_view text);

/// What the widget goes by while nothing is stored: "imperial", "false", "0", "none".
std::string defaultOf(const KnownSetting& setting);

/// What a value means, in a few words: "metric" for 1 under "units". May be empty.
std::string meaningOf(const KnownSetting& setting, const PropertyValue& value);

/// Whether the value is of a type that the widget reads as what it is.
bool hasFittingType(const KnownSetting& setting, const PropertyValue& value);

/// What to tell a user who stores a value that the widget makes little sense of: what is wrong with
/// it, to be read after its key. None for the others.
std::optional<std::string> misfitOf(const KnownSetting& setting, const PropertyValue& value);

}  // namespace wayfell
