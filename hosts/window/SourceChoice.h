// Where positions are to come from, as people write it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

namespace source {

/// A gpsd where one answers, or else GeoClue where there is one, or else the demo.
struct Automatic {
  friend bool operator==(const Automatic&, const Automatic&) = default;
};
struct Gpsd {
  GpsdAddress address;
  friend bool operator==(const Gpsd&, const Gpsd&) = default;
};
struct Geoclue {
  friend bool operator==(const Geoclue&, const Geoclue&) = default;
};
/// A receiver, or a file of what one has said, that speaks NMEA 0183.
struct NmeaDevice {
  std::string path;
  friend bool operator==(const NmeaDevice&, const NmeaDevice&) = default;
};
struct NmeaServer {
  std::string host;
  std::uint16_t port = 0;
  friend bool operator==(const NmeaServer&, const NmeaServer&) = default;
};
struct Replay {
  std::string file;  ///< "-" for standard input
  friend bool operator==(const Replay&, const Replay&) = default;
};
struct Demo {
  friend bool operator==(const Demo&, const Demo&) = default;
};

}  // namespace source

using SourceChoice =
    std::variant<source::Automatic, source::Gpsd, source::Geoclue, source::NmeaDevice,
                 source::NmeaServer, source::Replay, source::Demo>;

/// "auto", "gpsd", "gpsd=HOST:PORT", "geoclue", "nmea=/dev/ttyUSB0", "nmea=HOST:PORT",
/// "replay=FILE" or "demo". What comes after "nmea=" is a device when it has a slash in it. None
/// for anything else.
std::optional<SourceChoice> sourceChoiceOf(std::string_view text);

/// Whether it is a recording, which has a rate and settings of its own.
bool isRecording(const SourceChoice& choice);

}  // namespace wayfell
