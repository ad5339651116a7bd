// Addresses as CSV. The header names the columns in any order and case: LON, LAT, NUMBER, STREET,
// CITY, DISTRICT, REGION; others are passed over. Of these only LON and LAT must be there.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "hosts/services/addresses/AddressFile.h"
#include "hosts/text/CsvRecords.h"

namespace wayfell {

class AddressCsv : public AddressFile {
 public:
  /// Reads the header. Throws InputError when there is none.
  explicit AddressCsv(InputBytes input);

  bool next(AddressRow& row) override;
  std::size_t line() const override { return records_.line(); }

 private:
  enum Column { kLon, kLat, kNumber, kStreet, kCity, kDistrict, kRegion, kColumns };
  static constexpr std::array<std::string_view, kColumns> kNames = {
      "LON", "LAT", "NUMBER", "STREET", "CITY", "DISTRICT", "REGION"};

  std::string_view field(Column column) const;

  CsvRecords records_;
  std::array<std::optional<std::size_t>, kColumns> places_;
};

}  // namespace wayfell
