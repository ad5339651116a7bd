// The altitude of fixes that come without one: that of the fixes before, for a while. Many
// receivers tell the altitude in every second or third report only, and the panel would jump to 0 m
// and back.
#pragma once

#include <optional>

#include "platform/CLLocation.h"

namespace wayfell {

class KeptAltitude {
 public:
  /// The next fix, with an altitude that is kept where it has none, or one of less worth. Its
  /// vertical accuracy stays invalid.
  CLLocation completed(CLLocation fix);

 private:
  std::optional<CLLocation> best_;
};

}  // namespace wayfell
