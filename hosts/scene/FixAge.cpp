#include "hosts/scene/FixAge.h"

#include "platform/NSBundle.h"
#include "platform/Numbers.h"

namespace wayfell {
namespace {

constexpr double kFreshSeconds = 5;

struct AgeUnit {
  double seconds;
  double most;  // seconds, below which ages are told in this unit
  const char* key;
};
constexpr AgeUnit kAgeUnits[] = {{1, 60, textKey("fix %d s old")},
                                 {60, 3600, textKey("fix %d min old")},
                                 {3600, 2 * 86400, textKey("fix %d h old")}};
constexpr AgeUnit kDays = {86400, 0, textKey("fix %d days old")};

const AgeUnit& unitOf(double seconds) {
  for (const AgeUnit& unit : kAgeUnits) {
    if (seconds < unit.most) return unit;
  }
  return kDays;
}

}  // namespace

std::string noFixText() { return std::string(localized("no fix yet")); }

bool isFreshFix(double seconds) { return seconds <= kFreshSeconds; }

std::string fixAgeText(double seconds) {
  if (isFreshFix(seconds)) return "";
  const AgeUnit& unit = unitOf(seconds);
  return localizedStringWithFormat(unit.key, truncatedToInt32(seconds / unit.seconds));
}

}  // namespace wayfell
