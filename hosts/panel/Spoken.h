// The panel in full words, for those who hear it.
//
//   "speed 5.2 kilometres per hour", "heading 90 degrees, true",
//   "position latitude 46 degrees 58.9648 minutes north, longitude 7 degrees 56.3987 minutes east"
//
// The words are looked up in the string table like every other text. They are made of what has
// printed a label's text (platform/FormattedText.h), never of its characters; a text that no format
// has printed is said as it stands.
#pragma once

#include <string>

#include "hosts/panel/PanelReading.h"

namespace wayfell {

/// What a row says, with its caption.
std::string spokenText(const WidgetInterface& interface, PanelRow row);

/// What a format of the position is called in full; "none" for a number that no segment has.
std::string spokenFormat(int segment);

/// What a tap on the position does.
std::string spokenCopy();

}  // namespace wayfell
