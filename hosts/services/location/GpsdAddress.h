// Where a gpsd listens, as people write it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

struct GpsdAddress {
  std::string host = "localhost";
  std::string port = "2947";  ///< gpsd's own, by IANA's register

  /// "localhost:2947", "[::1]:2947".
  std::string text() const;

  friend bool operator==(const GpsdAddress&, const GpsdAddress&) = default;
};

/// "HOST:PORT", "HOST", ":PORT", "[::1]:PORT" or "::1", with what is left out as above. None when
/// the host is empty or holds blanks or slashes, or the port is no number from 1 to 65535.
std::optional<GpsdAddress> gpsdAddressOf(std::string_view text);

}  // namespace wayfell
