#include "hosts/window/SourceChoice.h"

#include <charconv>

namespace wayfell {
namespace {

// The port has to be said, unlike gpsd's: there is no usual one.
std::optional<SourceChoice> nmeaServerOf(std::string_view text) {
  const auto colon = text.rfind(':');
  if (colon == std::string_view::npos || colon + 1 == text.size()) return std::nullopt;
  const auto address = gpsdAddressOf(text);
  if (!address || colon == 0) return std::nullopt;
  source::NmeaServer server{address->host, 0};
  std::from_chars(address->port.data(), address->port.data() + address->port.size(), server.port);
  return server;
}

std::optional<SourceChoice> detailedChoiceOf(std::string_view kind, std::string_view where) {
  if (where.empty()) return std::nullopt;
  if (kind == "gpsd") {
    const auto address = gpsdAddressOf(where);
    return address ? std::optional<SourceChoice>(source::Gpsd{*address}) : std::nullopt;
  }
  if (kind == "nmea" && where.find('/') != std::string_view::npos) {
    return source::NmeaDevice{std::string(where)};
  }
  if (kind == "nmea") return nmeaServerOf(where);
  if (kind == "replay") return source::Replay{std::string(where)};
  return std::nullopt;
}

}  // namespace

std::optional<SourceChoice> sourceChoiceOf(std::string_view text) {
  const auto equals = text.find('=');
  if (equals != std::string_view::npos) {
    return detailedChoiceOf(text.substr(0, equals), text.substr(equals + 1));
  }
  if (text == "auto") return source::Automatic{};
  if (text == "gpsd") return source::Gpsd{};
  if (text == "geoclue") return source::Geoclue{};
  if (text == "demo") return source::Demo{};
  return std::nullopt;
}

bool isRecording(const SourceChoice& choice) {
  return std::holds_alternative<source::Replay>(choice) ||
         std::holds_alternative<source::Demo>(choice);
}

}  // namespace wayfell
