// What every reader of addresses holds their parts to.
#pragma once

#include <string>
#include <string_view>

#include "hosts/services/addresses/AddressRow.h"

namespace wayfell {

/// Sets a part to a text whose control characters have become blanks, with single blanks between
/// words and none around. Throws std::invalid_argument for one that is too long or not UTF-8.
void setPart(std::string& part, std::string_view text, std::string_view name);

/// Throws std::invalid_argument for a position that is none.
void checkPosition(const AddressRow& row);

}  // namespace wayfell
