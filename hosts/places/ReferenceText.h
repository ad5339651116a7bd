// UTM and MGRS references as people spell them, read back into positions.
//
//   UTM   33 N 500000 4649776     33n 500000.0mE 4649776.0mN     33 north 500000, 4649776
//   MGRS  33U VP 12345 67890      33UVP1234567890                33u vp 123 678
//
// Case and blanks do not matter, and a comma may stand before the northing. MGRS digits come in
// two groups of 1 to 5, or as one group of twice as many, and stand for the south-western corner
// of what they name: "33U VP 123 678" is that of a square of 100 m.
//
// In UTM a letter is a hemisphere or a latitude band. Two letters are both: S, the south or 32 to
// 40 degrees north, and N, the north or the 8 degrees north of the equator. The caller says what
// they are; all other letters are bands.
//
// The references are of the selected datum, the positions on WGS 84.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "hosts/text/TextScanner.h"
#include "platform/CLLocation.h"

namespace wayfell {

struct UtmReference {
  std::int32_t zone = 0;
  bool southern = false;
  std::optional<char> band;  ///< in capitals; none where the hemisphere is told
  double easting = 0;        ///< metres, as the northing
  double northing = 0;
};

struct MgrsReference {
  std::int32_t zone = 0;
  std::string letters;  ///< band, column and row, in capitals
  double easting = 0;   ///< metres within the square, as the northing
  double northing = 0;
};

/// What N and S stand for after a UTM zone.
enum class UtmLetters { hemispheres, bands };

// They throw std::invalid_argument, whose text says what is wrong, for what is not a reference.

UtmReference takeUtmReference(TextScanner& scanner, UtmLetters letters);
MgrsReference takeMgrsReference(TextScanner& scanner);

// The position by the system's formulas, its longitude within 180 degrees. What the system wrote
// reads back to within 9 m between 84 degrees south and north, except that a coordinate which it
// rounded up to the next 100 km (00000) reads back 100 km off: the letters are those from before.
//
// They throw std::invalid_argument for a reference to no place: beyond a pole, or not in the band
// that it names. Some MGRS references that exist are refused so: all of band A, whose southern edge
// the formulas put at infinity, and those whose corner is less than some 30 m from their band's
// southern edge, for which the formulas may take the next square of that name, 2000 km on.

CLLocationCoordinate2D positionOf(const UtmReference& reference);
CLLocationCoordinate2D positionOf(const MgrsReference& reference);

}  // namespace wayfell
