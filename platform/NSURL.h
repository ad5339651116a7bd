// A URL that keeps to the grammar of RFC 3986.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

class NSURL {
 public:
  /// None when the text holds a character that a URL may not (blanks, quotes, letters beyond
  /// ASCII ...), a "%" without two hexadecimal digits, a second "#", or nothing at all.
  /// Nothing is escaped or mended.
  static std::optional<NSURL> URLWithString(std::string_view text);

  const std::string& absoluteString() const { return text_; }

  friend bool operator==(const NSURL&, const NSURL&) = default;

 private:
  explicit NSURL(std::string_view text) : text_(text) {}
  std::string text_;
};

}  // namespace wayfell
