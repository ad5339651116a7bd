// What a Nominatim server answers, in its format jsonv2.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/CLPlacemark.h"

namespace wayfell {

struct NominatimAnswer {
  /// None when the server knows no address there.
  std::optional<CLPlacemark> placemark;
  /// Whose data it is, as the server says; empty when it does not.
  std::string licence;
};

/// Throws InputError for what is no such answer.
///
/// The street is the number and the first there is of: road, pedestrian, footway, path, cycleway,
/// bridleway, street, place; in the order of the country. The city is the first of city, town,
/// village, municipality, hamlet, suburb, city_district; the state the first of state, province,
/// region, state_district, county.
NominatimAnswer readNominatimAnswer(std::string_view json);

}  // namespace wayfell
