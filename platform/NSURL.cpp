#include "platform/NSURL.h"

#include <cstddef>

namespace wayfell {
namespace {

bool isAlphanumeric(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool isHexadecimal(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// RFC 3986, section 2: unreserved and reserved characters, less "#" and "%", which have rules of
// their own. Brackets are allowed only around an address literal, which nothing here opens.
bool standsAnywhere(char c) {
  return isAlphanumeric(c) || std::string_view("-._~:/?@!$&'()*+,;=").find(c) != std::string::npos;
}

}  // namespace

std::optional<NSURL> NSURL::URLWithString(std::string_view text) {
  if (text.empty()) return std::nullopt;
  bool inFragment = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '%') {
      if (i + 2 >= text.size() || !isHexadecimal(text[i + 1]) || !isHexadecimal(text[i + 2])) {
        return std::nullopt;
      }
      i += 2;
    } else if (c == '#' && !inFragment) {
      inFragment = true;
    } else if (!standsAnywhere(c)) {
      return std::nullopt;
    }
  }
  return NSURL(text);
}

}  // namespace wayfell
