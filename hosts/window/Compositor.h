// Whether windows are put together by a program, so that one may shine through another.
#pragma once

namespace wayfell {

/// On the platform that the application runs on. On X11, the first screen's.
bool windowsAreComposed();

}  // namespace wayfell
