// Reads files of addresses as OpenAddresses publishes them. Which kind it is, the content tells:
//   CSV      The header names the columns in any order and case: LON, LAT, NUMBER, STREET, CITY,
//            DISTRICT, REGION. Of these only LON and LAT must be there.
//   GeoJSON  A Feature with a Point a line, with the properties number, street, city, district and
//            region.
// Other columns and properties are passed over; the district stands for a city that is missing.
#pragma once

#include <cstddef>
#include <memory>

#include "hosts/services/addresses/AddressRow.h"
#include "hosts/text/InputBytes.h"

namespace wayfell {

class AddressFile {
 public:
  virtual ~AddressFile() = default;
  /// Reads the next row, which may have a position and nothing else; false at the end. Throws
  /// std::invalid_argument, saying what is wrong, for a row that cannot be read, after which the
  /// next one can be; InputError for a file that cannot be read any further.
  virtual bool next(AddressRow& row) = 0;
  /// Where the row read last begins, counted from 1.
  virtual std::size_t line() const = 0;
};

/// Throws InputError for what is neither.
std::unique_ptr<AddressFile> openAddressFile(InputBytes input);

}  // namespace wayfell
