// What GPX files are read with. Elements go by their names without a prefix, which is the writer's
// choice, and blanks around texts and numbers do not count.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "platform/CLLocation.h"

namespace wayfell::gpx {

/// Reads a file into the document and returns its root. Throws InputError for a text that is no
/// GPX file.
pugi::xml_node load(pugi::xml_document& document, const std::string& xml);

std::string_view localName(const pugi::xml_node& node);
/// The first of this name; null if there is none.
pugi::xml_node child(const pugi::xml_node& parent, std::string_view name);
std::string_view text(const pugi::xml_node& node);

// They throw InputError, whose text begins with the field, for anything but a finite number.

double number(std::string_view digits, const char* field);
/// The number in an element of the point itself; none without it.
std::optional<double> number(const pugi::xml_node& point, const char* name);
/// lat and lon: both must be there, and be a position.
CLLocationCoordinate2D coordinate(const pugi::xml_node& point);

}  // namespace wayfell::gpx
