#include "hosts/services/location/GpsdNotice.h"

#include <nlohmann/json.hpp>

namespace wayfell {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kBeginning = "{\"class\":\"";

std::string textOf(const Json& object, const char* name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

// A receiver is closed that has been activated at the time 0. One that has not been activated at
// all is waiting for gpsd to open it.
GpsdDevice deviceOf(const Json& object) {
  const auto activated = object.find("activated");
  const bool closed = activated != object.end() && activated->is_number() && *activated == 0;
  return {textOf(object, "path"), closed};
}

std::vector<GpsdDevice> devicesOf(const Json& object) {
  std::vector<GpsdDevice> devices;
  const auto list = object.find("devices");
  if (list == object.end() || !list->is_array()) return devices;
  for (const Json& device : *list) {
    if (device.is_object()) devices.push_back(deviceOf(device));
  }
  return devices;
}

}  // namespace

bool isGpsdObject(std::string_view line) { return line.substr(0, kBeginning.size()) == kBeginning; }

bool isGpsdObject(std::string_view line, std::string_view className) {
  if (!isGpsdObject(line)) return false;
  line.remove_prefix(kBeginning.size());
  return line.substr(0, className.size()) == className && line.substr(className.size(), 1) == "\"";
}

GpsdNotice readNotice(std::string_view line) {
  GpsdNotice notice;
  const bool devices = isGpsdObject(line, "DEVICES");
  if (!devices && !isGpsdObject(line, "DEVICE")) return notice;
  const Json object = Json::parse(line, nullptr, false);
  if (!object.is_object()) return notice;
  if (devices) {
    notice.devices = devicesOf(object);
  } else {
    notice.device = deviceOf(object);
  }
  return notice;
}

}  // namespace wayfell
