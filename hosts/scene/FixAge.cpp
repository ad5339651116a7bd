#include "hosts/scene/FixAge.h"

#include <cmath>

#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr double kFresh = 5;  // seconds; a fix that is no older needs no mention

}  // namespace

std::string fixAgeText(double seconds) {
  if (!(seconds > kFresh)) return "";
  return "fix " + shortestText(std::floor(seconds)) + " s old";
}

}  // namespace wayfell
