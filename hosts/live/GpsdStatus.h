// What a host says of a gpsd that it listens to.
#pragma once

#include "hosts/live/LiveScene.h"
#include "hosts/services/location/GpsdSource.h"

namespace wayfell {

/// The source must outlive what is returned.
SourceStatus statusOf(const GpsdSource& source, const GpsdAddress& address);

}  // namespace wayfell
