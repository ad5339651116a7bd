#include "hosts/window/panel/ShorterWay.h"

#include <cmath>

namespace wayfell {

double turnedByShorterWay(double present, double target) {
  const double turn = std::remainder(target - present, 360.0);
  return std::isfinite(turn) ? present + turn : present;
}

}  // namespace wayfell
