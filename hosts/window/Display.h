// Whether there is anything to show a window on. Qt itself ends the process when there is not.
#pragma once

namespace wayfell {

/// Whether the Wayland compositor or the X server that the environment names takes a connection.
/// A platform that the user has chosen by QT_QPA_PLATFORM is believed in.
bool displayAnswers();

}  // namespace wayfell
