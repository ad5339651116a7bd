#include "hosts/services/addresses/AddressCsv.h"

#include <stdexcept>
#include <string>

#include "hosts/services/addresses/RowParts.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

double degrees(std::string_view text, const char* name) {
  TextScanner scanner(text);
  const auto number = scanner.number();
  if (!number || !scanner.atEnd()) {
    throw std::invalid_argument(std::string(name) + ": " + inQuotes(text) + " is no number");
  }
  return *number;
}

}  // namespace

AddressCsv::AddressCsv(InputBytes input) : records_(std::move(input)) {
  if (!records_.next()) throw InputError("empty");
  for (std::size_t i = 0; i < records_.size(); ++i) {
    TextScanner scanner(records_.field(i));
    const std::string name = upperCased(scanner.word());
    for (std::size_t column = 0; column < kColumns; ++column) {
      if (name == kNames[column] && !places_[column]) places_[column] = i;
    }
  }
  for (const Column column : {kLon, kLat}) {
    if (places_[column]) continue;
    throw InputError("line " + std::to_string(line()) + ": no column " +
                     std::string(kNames[column]) +
                     " (the first line names the columns: LON,LAT,NUMBER,STREET,CITY,REGION)");
  }
}

bool AddressCsv::next(AddressRow& row) {
  if (!records_.next()) return false;
  row.longitude = degrees(field(kLon), "LON");
  row.latitude = degrees(field(kLat), "LAT");
  setPart(row.number, field(kNumber), "NUMBER");
  setPart(row.street, field(kStreet), "STREET");
  setPart(row.city, field(kCity), "CITY");
  if (row.city.empty()) setPart(row.city, field(kDistrict), "DISTRICT");
  setPart(row.region, field(kRegion), "REGION");
  checkPosition(row);
  return true;
}

std::string_view AddressCsv::field(Column column) const {
  const auto place = places_[column];
  return place && *place < records_.size() ? records_.field(*place) : std::string_view();
}

}  // namespace wayfell
