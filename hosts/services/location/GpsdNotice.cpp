#include "hosts/services/location/GpsdNotice.h"

#include <algorithm>

#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"

namespace wayfell {
namespace {

// Goes past a mark and the blanks before it, which gpsd leaves out, and other programs that have
// its reports pass through them do not. False for something else.
bool take(std::string_view mark, std::string_view& line) {
  const std::string_view rest = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
  if (!rest.starts_with(mark)) return false;
  line = rest.substr(mark.size());
  return true;
}

bool takeBeginning(std::string_view& line) {
  return take("{", line) && take("\"class\"", line) && take(":", line) && take("\"", line);
}

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

bool isGpsdObject(std::string_view line) { return takeBeginning(line); }

bool isGpsdObject(std::string_view line, std::string_view className) {
  return takeBeginning(line) && line.starts_with(className) &&
         line.substr(className.size()).starts_with('"');
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
