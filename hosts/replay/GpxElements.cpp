#include "hosts/replay/GpxElements.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "hosts/places/PositionText.h"
#include "hosts/replay/OtherFormats.h"
#include "hosts/text/InputError.h"
#include "hosts/text/XmlEncoding.h"

namespace wayfell::gpx {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  text.remove_suffix(text.size() - 1 - text.find_last_not_of(kBlanks));
  return text;
}

std::vector<std::uint32_t> lineEndsOf(std::string_view text) {
  std::vector<std::uint32_t> ends;
  ends.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
  for (std::size_t end = text.find('\n'); end != std::string_view::npos;
       end = text.find('\n', end + 1)) {
    ends.push_back(static_cast<std::uint32_t>(end));
  }
  return ends;
}

}  // namespace

Document::Document(std::string bytes)
    : text_(utf8OfXml(std::move(bytes))), lineEnds_(lineEndsOf(text_)) {
  // In any other encoding offsets would be those in a text of the parser's own.
  const pugi::xml_parse_result result = document_.load_buffer_inplace(
      text_.data(), text_.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!result) {
    fault_ = "line " + std::to_string(lineAt(result.offset)) +
             ": not well-formed XML: " + result.description();
    if (localName(root()) != "gpx") throw InputError(*fault_);
  }
  expectGpx(root().name());
}

std::size_t Document::lineOf(const pugi::xml_node& element) const {
  return lineAt(element.offset_debug());
}

std::size_t Document::lineAt(std::ptrdiff_t offset) const {
  const auto end = std::lower_bound(lineEnds_.begin(), lineEnds_.end(), offset);
  return static_cast<std::size_t>(end - lineEnds_.begin()) + 1;
}

pugi::xml_node Document::pass(pugi::xml_node element) {
  const pugi::xml_node next = element.next_sibling();
  element.parent().remove_child(element);
  return next;
}

std::string_view localName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

pugi::xml_node child(const pugi::xml_node& parent, std::string_view name) {
  return parent.find_child([name](const auto& node) { return localName(node) == name; });
}

std::string_view text(const pugi::xml_node& node) { return trimmed(node.text().get()); }

std::optional<double> number(std::string_view digits) {
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  double value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  const bool read = error == std::errc() && stop == end && std::isfinite(value);
  return read ? std::optional(value) : std::nullopt;
}

std::optional<double> number(const pugi::xml_node& point, const char* name) {
  return number(text(child(point, name)));
}

std::optional<CLLocationCoordinate2D> coordinate(const pugi::xml_node& point) {
  const auto latitude = number(trimmed(point.attribute("lat").value()));
  const auto longitude = number(trimmed(point.attribute("lon").value()));
  if (!latitude || !longitude) return std::nullopt;
  return CLLocationCoordinate2D{*latitude, *longitude};
}

bool isOnEarth(const CLLocationCoordinate2D& coordinate) {
  return std::abs(coordinate.latitude) <= kGreatestLatitude &&
         std::abs(coordinate.longitude) <= kGreatestLongitude;
}

}  // namespace wayfell::gpx
