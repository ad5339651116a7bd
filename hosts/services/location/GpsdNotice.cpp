#include "hosts/services/location/GpsdNotice.h"

#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"

namespace wayfell {
namespace {

constexpr std::string_view kBeginning = "{\"class\":\"";

// A receiver is closed that has been activated at the time 0. One that has not been activated at
// all is waiting for gpsd to open it.
GpsdDevice deviceOf(JsonLine::Value object) {
  const auto path = object.member("path");
  const auto activated = object.member("activated");
  return {path ? std::string(path->text()) : std::string(),
          activated && activated->isNumber() && activated->number() == 0};
}

std::vector<GpsdDevice> devicesOf(JsonLine::Value object) {
  std::vector<GpsdDevice> devices;
  const auto list = object.member("devices");
  if (!list || list->kind() != JsonLine::Kind::list) return devices;
  for (const JsonLine::Value& device : *list) {
    if (device.kind() == JsonLine::Kind::object) devices.push_back(deviceOf(device));
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
  JsonLine json;
  try {
    json.parse(line);
  } catch (const InputError&) {
    return notice;
  }
  if (devices) {
    notice.devices = devicesOf(json.root());
  } else {
    notice.device = deviceOf(json.root());
  }
  return notice;
}

}  // namespace wayfell
