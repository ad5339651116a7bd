#include "hosts/text/ElapsedText.h"

#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"

namespace wayfell {

std::string elapsedText(double seconds) {
  const std::int64_t whole = truncatedToInt64(seconds);
  return std::to_string(whole / 3600) +
         stringWithFormat(":%02d:%02d", whole % 3600 / 60, whole % 60);
}

std::optional<double> secondsOfElapsedText(std::string_view text) {
  constexpr int kMostParts = 3;
  TextScanner scanner(text);
  double seconds = 0;
  int parts = 0;
  do {
    const auto number = scanner.number();
    if (!number || *number < 0 || (parts > 0 && *number >= 60)) return std::nullopt;
    seconds = seconds * 60 + *number;
    ++parts;
  } while (parts < kMostParts && scanner.take(":"));
  return scanner.atEnd() ? std::optional(seconds) : std::nullopt;
}

}  // namespace wayfell
