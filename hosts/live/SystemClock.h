// The machine's clock.
#pragma once

#include "platform/Host.h"

namespace wayfell {

Clock& systemClock();

}  // namespace wayfell
