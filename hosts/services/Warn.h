// How services tell their host, and it the user, that something is not as it should be. The system
// itself reports no errors; its hosts do.
#pragma once

#include <functional>
#include <string>

namespace wayfell {

/// Takes a sentence without a full stop or a line break: where, a colon, what is wrong, and what
/// that means for the user.
using Warn = std::function<void(const std::string& sentence)>;

}  // namespace wayfell
