#include "hosts/services/addresses/AddressRow.h"

#include <stdexcept>

#include "hosts/places/PositionText.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

bool isBlank(char c) { return (c >= 0 && c <= ' ') || c == '\x7f'; }

}  // namespace

void setPart(std::string& part, std::string_view text, std::string_view name) {
  part.clear();
  if (text.size() > AddressRow::kLongestPart) {
    throw std::invalid_argument(std::string(name) + ": longer than " +
                                std::to_string(AddressRow::kLongestPart) + " bytes");
  }
  if (!isUtf8(text)) throw std::invalid_argument(std::string(name) + ": not UTF-8");
  bool between = false;
  for (const char c : text) {
    if (isBlank(c)) {
      between = !part.empty();
      continue;
    }
    if (between) part += ' ';
    between = false;
    part += c;
  }
}

void checkPosition(const AddressRow& row) {
  checkDegrees(row.latitude, kGreatestLatitude, "latitude");
  checkDegrees(row.longitude, kGreatestLongitude, "longitude");
}

}  // namespace wayfell
