// What Qt tells of positions and of the compass, as the system takes it.
//
// In the location of a QGeoPositionInfo
//   coordinate          is its latitude and longitude.
//   altitude            is that of its coordinate, or else 0.
//   horizontalAccuracy  is HorizontalAccuracy, or else 5 m; 0 is none.
//   verticalAccuracy    is VerticalAccuracy, or else 5 m, likewise; -1 where there is no altitude.
//   speed, course       are GroundSpeed and Direction, or else -1. Below 0.25 m/s a course is -1
//                       too, as it is noise.
//   timestamp           is its own, or else now.
// Accuracies come as the source means them: GeoClue's as they are; those of NMEA are 5 m times the
// dilution of precision, as for recorded tracks (NmeaFeed, FixQuality).
//
// In the heading of a QCompassReading
//   magneticHeading     is its azimuth.
//   trueHeading         is that and the variation which the last position told (MagneticVariation,
//                       east positive), or else -1.
//   headingAccuracy     5 degrees, as Qt estimates none; -1 while the compass is not calibrated
//                       (level 0). The desktop's sensor service knows of no calibration.
#pragma once

#include <QGeoPositionInfo>
#include <optional>

#include "platform/CLHeading.h"
#include "platform/CLLocation.h"

namespace wayfell {

/// None for what has no position.
std::optional<CLLocation> locationOf(const QGeoPositionInfo& info, NSDate now);

/// Degrees; the level is from 0 to 1, if the compass tells one.
CLHeading headingOf(double azimuth, std::optional<double> calibrationLevel,
                    std::optional<double> variation);

}  // namespace wayfell
