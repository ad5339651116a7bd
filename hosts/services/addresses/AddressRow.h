// An address as files of addresses have it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

  friend bool operator==(const AddressRow&, const AddressRow&) = default;

  /// Some rows have no more than a position and a town.
  bool isAddress() const { return !street.empty(); }
};

/// Sets a part to a text whose control characters have become blanks, with single blanks between
/// words and none around. Throws std::invalid_argument for one that is too long or not UTF-8.
void setPart(std::string& part, std::string_view text, std::string_view name);

/// Throws std::invalid_argument for a position that is none.
void checkPosition(const AddressRow& row);

}  // namespace wayfell
