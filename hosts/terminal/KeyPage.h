// All keys, and what they do; a click on one does it. A text that is too long goes on below, or is
// cut where there are too few rows for all keys. Below them the last message in full, where the
// line for it has no room.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "hosts/terminal/TextRow.h"

namespace wayfell {

std::vector<TextRow> composeKeyPage(std::span<const PanelAction> actions,
                                    const std::string& lastMessage, int columns, int mostRows);

}  // namespace wayfell
