#include "hosts/scene/FixAge.h"

#include "hosts/scene/SpanText.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr double kFreshSeconds = 5;

constexpr SpanKeys kAgeKeys = {textKey("fix %d s old"), textKey("fix %d min old"),
                               textKey("fix %d h old"), textKey("fix %d days old")};

}  // namespace

std::string noFixText() { return std::string(localized("no fix yet")); }

bool isFreshFix(double seconds) { return seconds <= kFreshSeconds; }

std::string fixAgeText(double seconds) {
  return isFreshFix(seconds) ? "" : spanText(kAgeKeys, seconds);
}

}  // namespace wayfell
