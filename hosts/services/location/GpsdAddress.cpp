#include "hosts/services/location/GpsdAddress.h"

#include <charconv>

namespace wayfell {
namespace {

bool isPort(std::string_view text) {
  unsigned port = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, port);
  return error == std::errc() && rest == end && port >= 1 && port <= 65535;
}

bool isHost(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t\r\n/[]") == std::string_view::npos;
}

}  // namespace

std::string GpsdAddress::text() const {
  const bool isNumeric6 = host.find(':') != std::string::npos;
  return (isNumeric6 ? '[' + host + ']' : host) + ':' + port;
}

std::optional<GpsdAddress> gpsdAddressOf(std::string_view text) {
  GpsdAddress address;
  std::string_view host = text;
  std::string_view rest;
  if (text.substr(0, 1) == "[") {
    const std::size_t end = text.find(']');
    if (end == std::string_view::npos) return std::nullopt;
    host = text.substr(1, end - 1);
    rest = text.substr(end + 1);
  } else if (const std::size_t colon = text.find(':'); colon == text.rfind(':')) {
    host = text.substr(0, colon);
    rest = text.substr(host.size());
    if (host.empty()) host = address.host;
  }
  if (!rest.empty()) {
    if (rest.front() != ':' || !isPort(rest.substr(1))) return std::nullopt;
    address.port = rest.substr(1);
  }
  if (text.empty() || !isHost(host)) return std::nullopt;
  address.host = host;
  return address;
}

}  // namespace wayfell
