// What gpsd says about its receivers: its objects DEVICES and DEVICE.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

/// Whether the line is an object as gpsd writes them, the class first, of whatever class. There may
/// be blanks around the class.
bool isGpsdObject(std::string_view line);
/// Whether it is one of this class.
bool isGpsdObject(std::string_view line, std::string_view className);

struct GpsdDevice {
  std::string path;  ///< "/dev/ttyACM0"
  bool closed = false;

  friend bool operator==(const GpsdDevice&, const GpsdDevice&) = default;
};

/// Holds one of them, or none.
struct GpsdNotice {
  std::optional<std::vector<GpsdDevice>> devices;  ///< all that there are
  std::optional<GpsdDevice> device;                ///< one that has changed
};

/// Nothing for other objects, and for what cannot be read.
GpsdNotice readNotice(std::string_view line);

}  // namespace wayfell
