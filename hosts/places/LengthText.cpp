#include "hosts/places/LengthText.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "hosts/text/TextScanner.h"
#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

constexpr std::pair<std::string_view, double> kUnits[] = {{"M", 1},
                                                          {"KM", 1000},
                                                          {"MI", kMetresPerMile},
                                                          {"NM", kMetresPerNauticalMile},
                                                          {"FT", kMetresPerFoot}};

[[noreturn]] void refuse(std::string_view text, const char* why) {
  throw std::invalid_argument(inQuotes(text) + why);
}

}  // namespace

double metresOfText(std::string_view text) {
  TextScanner scanner(text);
  const auto number = scanner.number();
  const std::string letters = upperCased(scanner.letters());
  if (!number || *number < 0 || !scanner.atEnd()) {
    refuse(text, " is not a length: 0 or more, with its unit: m, km, mi, nm or ft");
  }
  for (const auto& [unit, metres] : kUnits) {
    if (letters == unit) return *number * metres;
  }
  if (!letters.empty()) refuse(text, " has an unknown unit: it may be m, km, mi, nm or ft");
  if (*number != 0) refuse(text, " has no unit, which may be m, km, mi, nm or ft");
  return 0;
}

}  // namespace wayfell
