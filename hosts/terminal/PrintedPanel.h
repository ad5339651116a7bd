// The panel as plain text, to be printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

/// The lines of the panel at its narrowest. The caption stands in the frame on the right.
std::vector<std::string> printedPanel(const WidgetInterface& interface, std::string_view caption);

}  // namespace wayfell
