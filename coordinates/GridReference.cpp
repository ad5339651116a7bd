#include "coordinates/GridReference.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "coordinates/CoordinateLookup.h"
#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/Numbers.h"
#include "settings/StoredInteger.h"

namespace wayfell {

GridPosition::GridPosition(double latitude, double longitude)
    : selected(DatumManager::sharedInstance().selectedFromDefault(latitude, longitude)),
      zone(CoordinateLookup::zoneAt(selected.longitude)),
      band(CoordinateLookup::bandAt(latitude, selected.latitude)),
      metres(CoordinateLookup::metresAt(selected, zone)) {}

std::string utmZoneText(const GridPosition& position) {
  if (storedInteger("utmType") == 1) {
    return stringWithFormat("%d %@", position.zone, position.band);
  }
  const bool north = position.selected.latitude > 0;
  return localizedStringWithFormat(north ? textKey("%d N") : textKey("%d S"), position.zone);
}

std::string utmMetresText(double metres) { return stringWithFormat("%0.1f", metres); }

SquareLetters squareLetters(const GridPosition& position) {
  const std::int64_t before = std::int64_t{position.zone} - 1;
  const auto columnSet = static_cast<double>(before % 3);
  const auto rowSet = static_cast<double>(before % 2);
  const std::int32_t column =
      truncatedToInt32(position.metres.easting / 100000 + 8 * columnSet + 1 - 1);
  const std::int32_t row = truncatedToInt32(position.metres.northing / 100000 + 5 * rowSet + 1);
  // As an unsigned number a negative column is beyond the table, too.
  const auto columnIndex = static_cast<std::uint32_t>(column);
  return {kColumnLetters[columnIndex < kColumnLetters.size() ? columnIndex : 0],
          kRowLetters[static_cast<std::size_t>(std::max(row % 20, 0))]};
}

std::string mgrsZoneText(const GridPosition& position) {
  const SquareLetters square = squareLetters(position);
  return stringWithFormat("%d%@ %@%@", position.zone, position.band, square.column, square.row);
}

std::string mgrsMetresText(double metres) {
  // The 100 km digits go by cutting text, not by arithmetic.
  constexpr std::size_t kDigits = 5;
  std::string text = stringWithFormat("%05d", truncatedToInt32(std::round(metres)));
  if (text.size() > kDigits) text.erase(0, text.size() - kDigits);
  return text;
}

}  // namespace wayfell
