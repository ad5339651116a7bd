// Values of settings as users type them and as scripts read them.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace wayfell {

/// What valueOf of the stores reads and, for people: true, yes, false or no in either case for a
/// boolean, and ISO 8601 for a date ("2026-05-01", "2026-05-01T12:30:00+02:00"; UTC unless it says
/// otherwise). Throws BadValue.
PropertyValue typedValue(std::string_view type, std::string_view text);

/// Booleans, numbers, lists and dictionaries as they are, a date as seconds, data and all else as
/// the text that textOf gives.
nlohmann::ordered_json jsonOf(const PropertyValue& value);

}  // namespace wayfell
