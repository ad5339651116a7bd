// The pieces of UTM and MGRS texts. A position is moved, placed and projected once, and every
// piece is then read off the result. For this room only.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "coordinates/UTMPoint.h"
#include "platform/CLLocation.h"

namespace wayfell {

/// Letters of 100 km squares, west to east; the alphabet without I and O. A square beyond the
/// table shows the empty entry.
inline constexpr std::array<std::string_view, 25> kColumnLetters = {
    "",  "A", "B", "C", "D", "E", "F", "G", "H", "J", "K", "L", "M",
    "N", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z"};
/// Likewise south to north. V stands at both ends, so that a row number modulo 20 falls on the
/// cycle from A to V.
inline constexpr std::array<std::string_view, 21> kRowLetters = {"V", "A", "B", "C", "D", "E", "F",
                                                                 "G", "H", "J", "K", "L", "M", "N",
                                                                 "P", "Q", "R", "S", "T", "U", "V"};

struct GridPosition {
  /// Decimal degrees on the default datum.
  GridPosition(double latitude, double longitude);

  CLLocationCoordinate2D selected;  ///< the position on the selected datum
  std::int32_t zone;
  std::optional<std::string_view> band;
  UTMPoint metres;
};

/// "33 U" when the setting "utmType" is 1, else "33 N" or "33 S". The equator itself is S
/// there.
std::string utmZoneText(const GridPosition& position);
/// Metres with one decimal.
std::string utmMetresText(double metres);

struct SquareLetters {
  std::string_view column;
  std::string_view row;
};
SquareLetters squareLetters(const GridPosition& position);

/// "33U VP".
std::string mgrsZoneText(const GridPosition& position);
/// The last five digits of the rounded metres: the position within its square.
std::string mgrsMetresText(double metres);

}  // namespace wayfell
