// An address as files of addresses have it.
#pragma once

#include <cstddef>
#include <string>

namespace wayfell {

/// Texts are UTF-8, in one line and of at most kLongestPart bytes; empty where there is none.
struct AddressRow {
  static constexpr std::size_t kLongestPart = 256;

  double latitude = 0;   ///< degrees on WGS 84, -90 to 90
  double longitude = 0;  ///< -180 to 180
  std::string number;
  std::string street;
  std::string city;
  std::string region;

  /// Some rows have a position and nothing else.
  bool isEmpty() const {
    return number.empty() && street.empty() && city.empty() && region.empty();
  }
};

}  // namespace wayfell
