#include "hosts/scene/SpanText.h"

#include "platform/NSBundle.h"
#include "platform/Numbers.h"

namespace wayfell {

std::string spanText(const SpanKeys& keys, double seconds) {
  constexpr double kMinute = 60;
  constexpr double kHour = 3600;
  constexpr double kDay = 86400;
  const auto text = [seconds](const char* key, double unit) {
    return localizedStringWithFormat(key, truncatedToInt32(seconds / unit));
  };
  if (seconds < kMinute) return text(keys.seconds, 1);
  if (seconds < kHour) return text(keys.minutes, kMinute);
  if (seconds < 2 * kDay) return text(keys.hours, kHour);
  return text(keys.days, kDay);
}

}  // namespace wayfell
