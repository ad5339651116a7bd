// Turning the shorter way round.
#pragma once

namespace wayfell {

/// The angle, in degrees, that shows the direction `target` and is at most half a turn away from
/// `present`: from 350 to 10 it is 370. What is no direction leaves the present one.
double turnedByShorterWay(double present, double target);

}  // namespace wayfell
