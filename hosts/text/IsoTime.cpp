#include "hosts/text/IsoTime.h"

#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "hosts/text/Characters.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr std::chrono::sys_days kReferenceDate{std::chrono::year{2001} / 1 / 1};

// Whether the text begins with the pattern, in which "0" stands for any digit.
bool beginsLike(std::string_view text, std::string_view pattern) {
  if (text.size() < pattern.size()) return false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '0' ? !isDigit(text[i]) : text[i] != pattern[i]) return false;
  }
  return true;
}

int number(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

// Takes "." or "," and digits off the text.
double takeFraction(std::string_view& text) {
  if (!beginsLike(text, ".0") && !beginsLike(text, ",0")) return 0;
  text.remove_prefix(1);
  double value = 0;
  double unit = 1;
  for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
    value = value * 10 + (text.front() - '0');
    unit *= 10;
  }
  return value / unit;
}

// Seconds by which a zone is ahead of UTC; none for what is no zone.
std::optional<int> secondsAhead(std::string_view zone) {
  if (zone.empty() || zone == "Z" || zone == "z") return 0;
  const int sign = zone.front() == '-' ? -1 : 1;
  if (zone.front() != '+' && zone.front() != '-') return std::nullopt;
  zone.remove_prefix(1);
  const bool colon = zone.size() == 5 && beginsLike(zone, "00:00");
  if (!colon && !(zone.size() == 4 && beginsLike(zone, "0000")) &&
      !(zone.size() == 2 && beginsLike(zone, "00"))) {
    return std::nullopt;
  }
  const int minutes = zone.size() == 2 ? 0 : number(zone.substr(zone.size() - 2));
  return sign * (number(zone.substr(0, 2)) * 3600 + minutes * 60);
}

}  // namespace

std::optional<NSDate> dateOfIsoTime(std::string_view text) {
  constexpr std::string_view kPattern = "0000-00-00T00:00:00";
  constexpr std::string_view kWithBlank = "0000-00-00 00:00:00";
  if (!beginsLike(text, kPattern) && !beginsLike(text, kWithBlank)) return std::nullopt;
  const std::chrono::year_month_day date{
      std::chrono::year{number(text.substr(0, 4))},
      std::chrono::month{static_cast<unsigned>(number(text.substr(5, 2)))},
      std::chrono::day{static_cast<unsigned>(number(text.substr(8, 2)))}};
  const std::int64_t hours = number(text.substr(11, 2));
  const std::int64_t minutes = number(text.substr(14, 2));
  const std::int64_t seconds = number(text.substr(17, 2));
  text.remove_prefix(kPattern.size());
  const double fraction = takeFraction(text);
  const std::optional<int> ahead = secondsAhead(text);
  if (!date.ok() || hours > 23 || minutes > 59 || seconds > 60 || !ahead) return std::nullopt;
  const auto days = (std::chrono::sys_days{date} - kReferenceDate).count();
  const auto whole = days * 86400 + hours * 3600 + minutes * 60 + seconds - *ahead;
  return NSDate{static_cast<double>(whole) + fraction};
}

std::string isoTimeOf(NSDate date) {
  constexpr double kYearZero = -63145526400;  // seconds from the reference date
  constexpr double kYearTenThousand = 252423993600;
  const double seconds = date.timeIntervalSinceReferenceDate;
  if (!(seconds >= kYearZero && seconds + 1 < kYearTenThousand)) return "";
  const std::chrono::milliseconds time(std::llround(seconds * 1000));
  const auto days = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day day{kReferenceDate + days};
  const std::chrono::hh_mm_ss clock{time - days};
  std::string text = stringWithFormat(
      "%04d-%02d-%02dT%02d:%02d:%02d", int{day.year()}, unsigned{day.month()}, unsigned{day.day()},
      clock.hours().count(), clock.minutes().count(), clock.seconds().count());
  if (const auto milliseconds = clock.subseconds().count(); milliseconds != 0) {
    text += stringWithFormat(".%03d", milliseconds);
    text.erase(text.find_last_not_of('0') + 1);
  }
  return text + 'Z';
}

}  // namespace wayfell
