// Positions as texts, in all formats.
//
// Latitudes and longitudes are decimal degrees on WGS 84, north and east positive.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CLLocation.h"

namespace wayfell {

// Degrees, north and south of the equator, east and west of Greenwich.
inline constexpr double kGreatestLatitude = 90;
inline constexpr double kGreatestLongitude = 180;

/// Whether both degrees are within these; not-a-number is not.
bool isPosition(const CLLocationCoordinate2D& position);

/// Throws std::invalid_argument, such as "latitude 90.5 is beyond 90", for degrees that are not
/// within the greatest ones to both sides.
void checkDegrees(double degrees, double greatest, std::string_view name);

/// Short names of the formats, each at the system's index of it.
inline constexpr std::array<std::string_view, 5> kPositionFormats = {"dec", "dm", "dms", "mgrs",
                                                                     "utm"};

/// The system's text in a format, on the selected datum. None where it would show no position:
/// beyond the last latitude band there is no MGRS reference, nor a UTM one with band letters, and
/// at the poles a datum shift leads nowhere.
std::optional<std::string> positionText(const CLLocationCoordinate2D& position, std::size_t format);

/// "48.20820000 16.37380000": the system's fields of decimal degrees, which readPosition reads.
std::string plainPosition(const CLLocationCoordinate2D& position);

/// {"latitude":48.2082,"longitude":16.3738}
std::string positionJson(const CLLocationCoordinate2D& position);

}  // namespace wayfell
