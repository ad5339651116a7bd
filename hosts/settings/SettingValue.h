// How the value of a setting is written down.
#pragma once

#include <string_view>

#include "platform/PropertyValue.h"

namespace wayfell {

/// "integer", "boolean", "real", "text", "date", "data", "list" or "dictionary".
std::string_view typeName(const PropertyValue& value);

}  // namespace wayfell
