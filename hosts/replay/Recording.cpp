#include "hosts/replay/Recording.h"

#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"

namespace wayfell {
namespace {

constexpr std::size_t kShown = 12;  // bytes of an input that is not known

std::string shown(std::string_view beginning) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const std::string_view bytes = beginning.substr(0, kShown);
  std::string printable;
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (value >= ' ' && value < 0x7F) printable += byte;
    hex += {' ', kHex[value >> 4U], kHex[value & 0xFU]};
  }
  return printable.size() == bytes.size() ? '"' + printable + '"' : "the bytes" + hex;
}

[[noreturn]] void refuse(std::string_view beginning) {
  // NMEA 0183 sentences begin so, "$GPGGA" or AIS's "!AIVDM".
  if (beginning.front() == '$' || beginning.front() == '!') {
    throw InputError(
        "NMEA sentences are not read directly: run them through gpsd, and save what gpspipe -w "
        "prints");
  }
  throw InputError("begins with " + shown(beginning) +
                   "; a GPX track, reports of gpsd (gpspipe -w) or a scenario (JSON Lines) is "
                   "wanted");
}

// gpsd's objects all have a class, and a scenario's never do. A line that cannot be read is left
// to the scenario to complain of.
bool isGpsdReport(std::string_view line) {
  JsonLine json;
  try {
    json.parse(line);
  } catch (const InputError&) {
    return false;
  }
  for (const JsonLine::Value& member : json.root()) {
    if (member.key() == "class") return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<Recording> openRecording(InputBytes input) {
  auto lines = std::make_unique<LineReader>(std::move(input));
  const std::string_view beginning = lines->peekFirstLine(kShown);
  if (beginning.empty()) throw InputError("empty");
  if (beginning.front() == '<') {
    return openGpxTrack(lines->readAll(kLongestGpxFile));
  }
  if (beginning.front() != '{') refuse(beginning);
  const auto first = lines->next();
  const bool gpsd = first && isGpsdReport(*first);
  lines->putBack();
  return gpsd ? openGpsdReports(std::move(lines)) : openScenario(std::move(lines));
}

}  // namespace wayfell
