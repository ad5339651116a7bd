// The panel as plain text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/terminal/Panel.h"

namespace wayfell {

/// The lines of the panel at its narrowest. The caption stands in the frame on the right.
std::vector<std::string> panelText(const WidgetInterface& interface, std::string_view caption);

}  // namespace wayfell
