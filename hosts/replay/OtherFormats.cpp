#include "hosts/replay/OtherFormats.h"

#include <algorithm>
#include <string>

#include "hosts/text/Characters.h"
#include "hosts/text/InputError.h"
#include "hosts/text/Utf8.h"
#include "hosts/text/XmlEncoding.h"

namespace wayfell {
namespace {

using std::string_view_literals::operator""sv;

constexpr const char* kWanted =
    "a GPX track, reports of gpsd (gpspipe -w) or a scenario (JSON Lines) is wanted";

std::string shown(std::string_view beginning) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const std::string_view bytes = beginning.substr(0, kToldBy);
  std::string printable;
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (value >= ' ' && value < 0x7F) printable += byte;
    hex += {' ', kHex[value >> 4U], kHex[value & 0xFU]};
  }
  return printable.size() == bytes.size() ? '"' + printable + '"' : "the bytes" + hex;
}

// Files that hold a recording in another form, by what stands at a place near their beginning.
struct OtherFile {
  std::size_t place;
  std::string_view bytes;
  const char* what;
  const char* unpack = nullptr;  // a command
  const char* other = "";        // what can be done without one
};
constexpr const char* kNmea =
    "NMEA sentences are not read directly: run them through gpsd, and save what gpspipe -w prints";
constexpr const char* kToGpx = ": export it as GPX, or make GPX of it with gpsbabel";
constexpr const char* kFromUtf16 = "iconv -f UTF-16 -t UTF-8 FILE";
constexpr OtherFile kOtherFiles[] = {
    {0, "\x1F\x8B", "this is gzip", "zcat FILE"},
    {0, "PK\3\4", "this is a zip archive, as KMZ is", "unzip -p FILE"},
    {0, "BZh", "this is bzip2", "bzcat FILE"},
    {0, "\xFD\x37zXZ", "this is xz", "xzcat FILE"},
    {0, "\x28\xB5\x2F\xFD", "this is zstd", "zstdcat FILE"},
    {0, "\xFF\xFE", "this is UTF-16", kFromUtf16},
    {0, "\xFE\xFF", "this is UTF-16", kFromUtf16},
    {8, ".FIT", "this is FIT", nullptr, kToGpx},
    // NMEA 0183 sentences begin so, "$GPGGA" or AIS's "!AIVDM".
    {0, "$", kNmea},
    {0, "!", kNmea},
};

bool beginsLikeXml(std::string_view beginning) {
  const char second = beginning.size() > 1 ? beginning[1] : '?';
  return beginning.front() == '<' && (isLetter(second) || "?!_"sv.find(second) != beginning.npos);
}

bool beginsLikeJson(std::string_view beginning) {
  const char second = beginning.size() > 1 ? beginning[1] : '"';
  return beginning.front() == '{' && "\" \t\r\n}"sv.find(second) != beginning.npos;
}

std::string_view withoutBlanks(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return text;
}

}  // namespace

void refuseKnownFormats(std::string_view beginning, std::string_view reader) {
  if (isWideXml(beginning)) return;
  for (const OtherFile& other : kOtherFiles) {
    const std::string_view there = beginning.substr(std::min(other.place, beginning.size()));
    if (!there.starts_with(other.bytes)) continue;
    const std::string what = other.what;
    if (other.unpack == nullptr) throw InputError(what + other.other);
    throw InputError(what + ": " + other.unpack + " | " + std::string(reader));
  }
}

void refuseOtherFiles(std::string_view beginning) {
  const std::string_view text = withoutBlanks(beginning);
  refuseKnownFormats(text, "wayfell replay -");
  if (text.empty() || isWideXml(text) || beginsLikeXml(text) || beginsLikeJson(text)) return;
  throw InputError("begins with " + shown(text) + "; " + kWanted);
}

void expectGpx(std::string_view element) {
  const std::string_view name = element.substr(element.find(':') + 1);  // npos + 1 is 0
  if (name == "gpx") return;
  if (name == "kml") throw InputError(std::string("this is KML") + kToGpx);
  if (name == "TrainingCenterDatabase") throw InputError(std::string("this is TCX") + kToGpx);
  throw InputError("not GPX: the document is of type <" + std::string(element) + ">");
}

}  // namespace wayfell
