#include "hosts/window/WindowSources.h"

#include <charconv>
#include <cstdint>
#include <utility>

#include "hosts/live/SystemClock.h"
#include "hosts/services/location/GpsdAddress.h"
#include "hosts/window/positions/GeoclueFeed.h"
#include "hosts/window/positions/NmeaFeed.h"
#include "hosts/window/positions/QtPositionSource.h"

namespace wayfell {
namespace {

struct Server {
  std::string host;
  std::uint16_t port = 0;
};

// Written as gpsd's address, but the port has to be said: there is no usual one.
std::optional<Server> serverOf(const std::string& text) {
  const auto colon = text.rfind(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == text.size()) return std::nullopt;
  const auto address = gpsdAddressOf(text);
  if (!address) return std::nullopt;
  Server server{address->host};
  std::from_chars(address->port.data(), address->port.data() + address->port.size(), server.port);
  return server;
}

bool isDevice(const std::string& where) { return where.find('/') != std::string::npos; }

LiveSource onFeed(HostRunLoop& loop, std::unique_ptr<PositionFeed> feed) {
  auto source = std::make_unique<QtPositionSource>(loop, systemClock(), std::move(feed));
  SourceStatus status = {[&feed = source->feed()] { return feed.name(); },
                         [&feed = source->feed()] { return feed.trouble(); },
                         [&source = *source] { return source.deliversHeadings(); }};
  return {std::move(source), std::move(status)};
}

LiveSource openNmea(HostRunLoop& loop, const std::string& where) {
  if (isDevice(where)) return onFeed(loop, nmeaFromDevice(loop, where));
  const Server server = *serverOf(where);
  return onFeed(loop, nmeaFromServer(loop, server.host, server.port));
}

}  // namespace

Sources windowSources() {
  return Sources(
      {{.name = "geoclue",
        .forms = {{"geoclue", "the desktop's location service"}},
        .takes = [](const std::string& where) { return where.empty(); },
        .open =
            [](HostRunLoop& loop, const std::string& /*where*/) {
              return onFeed(loop, std::make_unique<GeoclueFeed>(loop));
            },
        .called = [] { return std::string("GeoClue"); },
        .isThere = [](HostRunLoop& /*loop*/) { return geoclueIsThere(); }},
       {.name = "nmea",
        .forms = {{"nmea=DEVICE", "a receiver that speaks NMEA, at the speed the port is set to"},
                  {"nmea=HOST:PORT", "likewise over TCP"}},
        .takes =
            [](const std::string& where) { return isDevice(where) || serverOf(where).has_value(); },
        .open = openNmea}});
}

}  // namespace wayfell
