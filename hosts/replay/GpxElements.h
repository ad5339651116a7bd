// What GPX files are read with. Elements go by their names without a prefix, which is the writer's
// choice, and blanks around texts and numbers do not count.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CLLocation.h"

namespace wayfell::gpx {

/// A file in memory, in any encoding.
class Document {
 public:
  /// Throws InputError for bytes that do not even begin as a GPX file does.
  explicit Document(std::string bytes);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  pugi::xml_node root() const { return document_.document_element(); }
  /// Why the file cannot be read to its end; the element in which that is may not be whole.
  const std::optional<std::string>& fault() const { return fault_; }
  /// Goes past an element that is not needed any more: frees it, and returns the one after it.
  static pugi::xml_node pass(pugi::xml_node element);
  /// The line that an element begins in, counted from 1.
  std::size_t lineOf(const pugi::xml_node& element) const;

 private:
  std::size_t lineAt(std::ptrdiff_t offset) const;

  std::string text_;                     // the document's elements lie in it
  std::vector<std::uint32_t> lineEnds_;  // offsets in the text, before it was taken apart
  pugi::xml_document document_;
  std::optional<std::string> fault_;
};

std::string_view localName(const pugi::xml_node& node);
/// The first of this name; null if there is none.
pugi::xml_node child(const pugi::xml_node& parent, std::string_view name);
std::string_view text(const pugi::xml_node& node);

/// None for anything but a finite number.
std::optional<double> number(std::string_view digits);
/// The number in an element of the point itself; none without it.
std::optional<double> number(const pugi::xml_node& point, const char* name);

/// lat and lon; none unless both are there. They may be out of range.
std::optional<CLLocationCoordinate2D> coordinate(const pugi::xml_node& point);
bool isOnEarth(const CLLocationCoordinate2D& coordinate);

}  // namespace wayfell::gpx
