#include "hosts/text/ElapsedText.h"

#include "platform/NSString.h"
#include "platform/Numbers.h"

namespace wayfell {

std::string elapsedText(double seconds) {
  const std::int64_t whole = truncatedToInt64(seconds);
  return std::to_string(whole / 3600) +
         stringWithFormat(":%02d:%02d", whole % 3600 / 60, whole % 60);
}

}  // namespace wayfell
