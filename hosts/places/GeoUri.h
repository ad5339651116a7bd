// Positions as URIs: "geo:46.98,7.94", with an altitude and parameters, as RFC 5870 has them.
#pragma once

#include <string_view>

#include "platform/CLLocation.h"

namespace wayfell {

/// Whether the text says that it is such a URI.
bool isGeoUri(std::string_view text);

/// Altitude and parameters are passed over, but a coordinate system other than WGS 84 is refused.
/// Throws std::invalid_argument, whose text says what is wrong.
CLLocationCoordinate2D positionOfGeoUri(std::string_view uri);

}  // namespace wayfell
