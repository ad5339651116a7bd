#include "hosts/scene/FixAge.h"

#include <cmath>

#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr double kFreshSeconds = 5;  // a fix that is no older needs no mention

}  // namespace

std::string fixAgeText(const std::optional<CLLocation>& fix, NSDate now) {
  if (!fix) return "no fix yet";
  const double age = now.timeIntervalSinceDate(fix->timestamp);
  if (age <= kFreshSeconds) return "";
  return "fix " + shortestText(std::floor(age)) + " s old";
}

}  // namespace wayfell
