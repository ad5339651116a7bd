#include "hosts/scene/FixWarning.h"

#include <cmath>

#include "hosts/scene/SpanText.h"
#include "hosts/services/location/FixQuality.h"
#include "platform/NSBundle.h"
#include "platform/Numbers.h"

namespace wayfell {
namespace {

constexpr double kFreshSeconds = 5;

constexpr SpanKeys kAgeKeys = {textKey("fix %d s old"), textKey("fix %d min old"),
                               textKey("fix %d h old"), textKey("fix %d days old")};

// Why the panel does not show the last fix that came; empty if it does, and for one that is no
// position at all.
std::string refusal(const TodayViewController& widget) {
  const auto& last = widget.oldLocation;
  if (!last || last == widget.currentLocation || last->horizontalAccuracy <= 0) return "";
  const auto metres = [](double accuracy) { return truncatedToInt32(std::ceil(accuracy)); };
  if (last->horizontalAccuracy > TodayViewController::kGoodHorizontalAccuracy) {
    return localizedStringWithFormat("fix too inaccurate: %d m", metres(last->horizontalAccuracy));
  }
  return localizedStringWithFormat("fix too inaccurate in height: %d m",
                                   metres(last->verticalAccuracy));
}

}  // namespace

bool isFreshFix(double seconds) { return seconds <= kFreshSeconds; }

std::string fixWarning(const TodayViewController& widget, std::optional<double> age,
                       const std::string& trouble) {
  if (age && isFreshFix(*age)) {
    if (!trouble.empty()) return trouble;
    return hasAltitude(*widget.currentLocation) ? "" : std::string(localized("no altitude"));
  }
  const std::string reason = trouble.empty() ? refusal(widget) : trouble;
  if (!age) return reason.empty() ? std::string(localized("no fix yet")) : reason;
  // The age first, which is never cut off.
  const std::string old = spanText(kAgeKeys, *age);
  return reason.empty() ? old : old + std::string(localized(", ")) + reason;
}

}  // namespace wayfell
