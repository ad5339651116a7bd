// A number of the program's own settings with all its 64 bits. UserDefaults::checkIntDefaults
// keeps 32.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/NSUserDefaults.h"

namespace wayfell {

/// 0 when it is missing.
inline std::int64_t storedInteger(std::string_view key) {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults ? defaults->integerForKey(key) : 0;
}

}  // namespace wayfell
