// Bytes as text, 6 bits a letter (RFC 4648, section 4).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace wayfell {

std::string base64Of(const PropertyValue::Data& data);
/// None for what is not base64 with its "=" at the end. The bits that no byte takes may be any.
std::optional<PropertyValue::Data> dataOfBase64(std::string_view text);

}  // namespace wayfell
