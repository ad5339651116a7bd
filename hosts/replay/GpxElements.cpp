#include "hosts/replay/GpxElements.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "hosts/places/PositionText.h"
#include "hosts/text/InputError.h"
#include "hosts/text/Utf8.h"
#include "platform/NSString.h"

namespace wayfell::gpx {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  text.remove_suffix(text.size() - 1 - text.find_last_not_of(kBlanks));
  return text;
}

std::string lineOf(std::string_view xml, std::ptrdiff_t offset) {
  const auto lines = std::count(xml.begin(), xml.begin() + offset, '\n') + 1;
  return "line " + std::to_string(lines) + ": ";
}

double degrees(const pugi::xml_node& point, const char* name, double limit) {
  const auto attribute = point.attribute(name);
  if (!attribute) throw InputError(std::string(name) + ": missing");
  const double degrees = number(trimmed(attribute.value()), name);
  if (std::abs(degrees) > limit) {
    throw InputError(std::string(name) + ": beyond " + shortestText(limit) + " degrees");
  }
  return degrees;
}

}  // namespace

pugi::xml_node load(pugi::xml_document& document, const std::string& xml) {
  const pugi::xml_parse_result result = document.load_buffer(xml.data(), xml.size());
  if (!result) {
    throw InputError(lineOf(xml, result.offset) + "not well-formed XML: " + result.description());
  }
  if (result.encoding == pugi::encoding_utf8 && !isUtf8(xml)) throw InputError("not UTF-8");
  const auto root = document.document_element();
  if (localName(root) != "gpx") {
    throw InputError("not GPX: the document is of type <" + std::string(root.name()) + ">");
  }
  return root;
}

std::string_view localName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

pugi::xml_node child(const pugi::xml_node& parent, std::string_view name) {
  return parent.find_child([name](const auto& node) { return localName(node) == name; });
}

std::string_view text(const pugi::xml_node& node) { return trimmed(node.text().get()); }

double number(std::string_view digits, const char* field) {
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  double value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) {
    throw InputError(std::string(field) + ": expected a number");
  }
  return value;
}

std::optional<double> number(const pugi::xml_node& point, const char* name) {
  const auto node = child(point, name);
  return node ? std::optional(number(text(node), name)) : std::nullopt;
}

CLLocationCoordinate2D coordinate(const pugi::xml_node& point) {
  CLLocationCoordinate2D coordinate;
  coordinate.latitude = degrees(point, "lat", kGreatestLatitude);
  coordinate.longitude = degrees(point, "lon", kGreatestLongitude);
  return coordinate;
}

}  // namespace wayfell::gpx
