// A place that a reverse geocoder found. Parts that it does not know are missing.
#pragma once

#include <optional>
#include <string>

namespace wayfell {

struct CNPostalAddress {
  std::optional<std::string> street;
  std::optional<std::string> city;
  std::optional<std::string> state;

  friend bool operator==(const CNPostalAddress&, const CNPostalAddress&) = default;
};

struct CLPlacemark {
  std::optional<CNPostalAddress> postalAddress;

  friend bool operator==(const CLPlacemark&, const CLPlacemark&) = default;
};

}  // namespace wayfell
