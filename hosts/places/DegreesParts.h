// The numbers of a position in degrees, and the signs, marks and letters around each.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "hosts/text/TextScanner.h"

namespace wayfell {

/// The letters of a language, read beside N, S, E and W in either case. What means one direction
/// here and another one there is refused.
struct HemisphereLetters {
  std::string north = "N";
  std::string south = "S";
  std::string east = "E";
  std::string west = "W";
};

/// A colon stands for the unit of the number before it, whichever that is.
enum class DegreesUnit { degree, minute, second, colon, none };

struct DegreesPart {
  double value = 0;  ///< without the sign
  bool isWhole = true;
  bool beginsWithPoint = false;
  char sign = '\0';
  DegreesUnit unit = DegreesUnit::none;
  bool isSpelled = false;  ///< the unit, in letters
  char before = '\0';      ///< N, S, E or W, as is `after`
  char after = '\0';
  bool isApart = false;  ///< a comma or semicolon stands before it
};

struct DegreesParts {
  static constexpr std::size_t kMost = 6;
  std::array<DegreesPart, kMost> parts;
  std::size_t count = 0;
};

/// Takes all that is left. Throws std::invalid_argument, whose text says what is wrong.
DegreesParts takeDegreesParts(TextScanner& scanner, const HemisphereLetters& letters);

/// Throws std::invalid_argument, whose text says why and how positions are written.
[[noreturn]] void refuseNotation(const std::string& why);

}  // namespace wayfell
