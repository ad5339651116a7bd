// Whether there is anything to show a window on. Qt itself ends the process when there is not.
#pragma once

#include <memory>

namespace wayfell {

/// A connection to the Wayland compositor or the X server that the environment names, or none when
/// neither takes one. A platform that the user has chosen by QT_QPA_PLATFORM is believed in.
///
/// It is to be held until Qt has one of its own: an X server starts anew when the last one ends.
std::shared_ptr<void> connectToDisplay();

}  // namespace wayfell
