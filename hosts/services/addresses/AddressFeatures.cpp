#include "hosts/services/addresses/AddressFeatures.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/services/addresses/RowParts.h"
#include "hosts/text/InputError.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

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
  if (isText(feature.member("type"), "FeatureCollection")) {
    throw std::invalid_argument(
        "a FeatureCollection, not a Feature a line (jq -c '.features[]' makes it so)");
  }
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

}  // namespace

bool AddressFeatures::next(AddressRow& row) {
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

}  // namespace wayfell
