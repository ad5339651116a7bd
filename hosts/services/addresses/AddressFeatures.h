// Addresses as GeoJSON, a Feature with a Point a line, with the properties number, street, city,
// district and region; others are passed over.
#pragma once

#include "hosts/services/addresses/AddressFile.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"

namespace wayfell {

class AddressFeatures : public AddressFile {
 public:
  explicit AddressFeatures(InputBytes input) : lines_(std::move(input)) {}

  bool next(AddressRow& row) override;
  std::size_t line() const override { return lines_.number(); }

 private:
  LineReader lines_;
  JsonLine json_;
};

}  // namespace wayfell
