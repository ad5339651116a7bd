#include "hosts/services/addresses/NominatimAnswer.h"

#include <initializer_list>
#include <stdexcept>

#include "hosts/services/addresses/AddressRow.h"
#include "hosts/services/addresses/StreetText.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"

namespace wayfell {
namespace {

using Value = JsonLine::Value;

// The first of the members that has a text in it.
std::string firstText(Value object, std::initializer_list<std::string_view> keys) {
  std::string text;
  for (const std::string_view key : keys) {
    const auto value = object.member(key);
    if (value && value->kind() == JsonLine::Kind::text) setPart(text, value->text(), key);
    if (!text.empty()) break;
  }
  return text;
}

std::optional<std::string> orNone(std::string text) {
  return text.empty() ? std::nullopt : std::optional(std::move(text));
}

std::optional<CLPlacemark> placemarkOf(Value address) {
  const std::string number = firstText(address, {"house_number"});
  const std::string road = firstText(address, {"road", "pedestrian", "footway", "path", "cycleway",
                                               "bridleway", "street", "place"});
  CNPostalAddress postal;
  postal.street = streetText(number, road, firstText(address, {"country_code"}));
  postal.city = orNone(firstText(
      address, {"city", "town", "village", "municipality", "hamlet", "suburb", "city_district"}));
  postal.state =
      orNone(firstText(address, {"state", "province", "region", "state_district", "county"}));
  if (postal == CNPostalAddress()) return std::nullopt;
  return CLPlacemark{postal};
}

NominatimAnswer read(Value root) {
  if (root.kind() != JsonLine::Kind::object) throw InputError("not an object");
  NominatimAnswer answer;
  answer.licence = firstText(root, {"licence"});
  const auto address = root.member("address");
  if (address && address->kind() == JsonLine::Kind::object) {
    answer.placemark = placemarkOf(*address);
  } else if (!root.member("error")) {
    throw InputError("neither an address nor an error");
  }
  return answer;
}

}  // namespace

NominatimAnswer readNominatimAnswer(std::string_view json) {
  JsonLine line;
  line.parse(json);
  try {
    return read(line.root());
  } catch (const std::invalid_argument& error) {
    throw InputError(error.what());
  }
}

}  // namespace wayfell
