#include "hosts/services/addresses/AddressFile.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/text/CsvRecords.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// ---- CSV ----

double degrees(std::string_view text, std::string_view name) {
  TextScanner scanner(text);
  const auto number = scanner.number();
  if (!number || !scanner.atEnd()) {
    throw std::invalid_argument(std::string(name) + ": " + inQuotes(text) + " is no number");
  }
  return *number;
}

class AddressCsv : public AddressFile {
 public:
  explicit AddressCsv(InputBytes input) : records_(std::move(input)) {
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

  bool next(AddressRow& row) override {
    if (!records_.next()) return false;
    row.longitude = degrees(field(kLon), kNames[kLon]);
    row.latitude = degrees(field(kLat), kNames[kLat]);
    set(row.number, kNumber);
    set(row.street, kStreet);
    set(row.city, kCity);
    if (row.city.empty()) set(row.city, kDistrict);
    set(row.region, kRegion);
    checkPosition(row);
    return true;
  }
  std::size_t line() const override { return records_.line(); }

 private:
  enum Column { kLon, kLat, kNumber, kStreet, kCity, kDistrict, kRegion, kColumns };
  static constexpr std::array<std::string_view, kColumns> kNames = {
      "LON", "LAT", "NUMBER", "STREET", "CITY", "DISTRICT", "REGION"};

  std::string_view field(Column column) const {
    const auto place = places_[column];
    return place && *place < records_.size() ? records_.field(*place) : std::string_view();
  }
  void set(std::string& part, Column column) const { setPart(part, field(column), kNames[column]); }

  CsvRecords records_;
  std::array<std::optional<std::size_t>, kColumns> places_;
};

// ---- GeoJSON ----

using Value = JsonLine::Value;

bool isText(const std::optional<Value>& value, std::string_view text) {
  return value && value->kind() == JsonLine::Kind::text && value->text() == text;
}

void readPosition(Value feature, AddressRow& row) {
  const auto geometry = feature.member("geometry");
  const auto coordinates = geometry ? geometry->member("coordinates") : std::nullopt;
  std::vector<double> numbers;
  if (coordinates && isText(geometry->member("type"), "Point")) {
    for (const Value& value : *coordinates) {
      if (value.isNumber()) numbers.push_back(value.number());
    }
  }
  if (numbers.size() < 2) throw std::invalid_argument("no Point with [longitude, latitude]");
  row.longitude = numbers[0];
  row.latitude = numbers[1];
}

// Numbers of houses are texts, and in some files numbers.
void readPart(std::string& part, const std::optional<Value>& properties, std::string_view key) {
  part.clear();
  const auto value = properties ? properties->member(key) : std::nullopt;
  if (!value) return;
  if (value->kind() == JsonLine::Kind::text) setPart(part, value->text(), key);
  if (value->kind() == JsonLine::Kind::integer) part = std::to_string(value->integer());
  if (value->kind() == JsonLine::Kind::real) part = shortestText(value->real());
}

void readFeature(Value feature, AddressRow& row) {
  if (!isText(feature.member("type"), "Feature")) throw std::invalid_argument("not a Feature");
  readPosition(feature, row);
  const auto properties = feature.member("properties");
  readPart(row.number, properties, "number");
  readPart(row.street, properties, "street");
  readPart(row.city, properties, "city");
  if (row.city.empty()) readPart(row.city, properties, "district");
  readPart(row.region, properties, "region");
  checkPosition(row);
}

class AddressFeatures : public AddressFile {
 public:
  explicit AddressFeatures(InputBytes input) : lines_(std::move(input)) {}

  bool next(AddressRow& row) override {
    const auto line = lines_.next();
    if (!line) return false;
    try {
      json_.parse(*line);
    } catch (const InputError& error) {
      throw std::invalid_argument(error.what());
    }
    readFeature(json_.root(), row);
    return true;
  }
  std::size_t line() const override { return lines_.number(); }

 private:
  LineReader lines_;
  JsonLine json_;
};

constexpr std::size_t kCollectionStart = 4096;  // bytes, in which a collection says that it is one

// An ordinary GeoJSON file is one object, on one line or on many.
void refuseCollection(std::string_view start) {
  const std::size_t collection = start.find("\"FeatureCollection\"");
  if (collection > start.find("\"Feature\"")) return;  // also where there is none
  if (collection == std::string_view::npos) return;
  throw InputError(
      "a GeoJSON FeatureCollection, not a Feature a line: "
      "jq -c '.features[]' FILE | wayfell addresses import -");
}

}  // namespace

std::unique_ptr<AddressFile> openAddressFile(InputBytes input) {
  if (input.peek(kByteOrderMark.size()).starts_with(kByteOrderMark)) {
    input.skip(kByteOrderMark.size());
  }
  std::string_view start = input.peek(4);
  if (start.starts_with("\x1f\x8b") || start.starts_with("PK\x03\x04")) {
    throw InputError("compressed: unpack it first (zcat FILE.gz | wayfell addresses import -)");
  }
  start.remove_prefix(std::min(start.find_first_not_of(" \t\r\n"), start.size()));
  if (start.starts_with("{")) {
    refuseCollection(input.peek(kCollectionStart));
    return std::make_unique<AddressFeatures>(std::move(input));
  }
  return std::make_unique<AddressCsv>(std::move(input));
}

}  // namespace wayfell
