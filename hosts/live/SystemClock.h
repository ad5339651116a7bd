// The machine's clock.
#pragma once

#include "platform/Host.h"

namespace wayfell {

class SystemClock : public Clock {
 public:
  NSDate now() const override;
};

}  // namespace wayfell
