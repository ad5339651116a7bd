#include "hosts/terminal/UserNotation.h"

#include "hosts/services/texts/UserTexts.h"

namespace wayfell {

PositionNotation userNotation() {
  const CatalogueTexts texts = userTexts([](const std::string& /*damaged*/) {});
  PositionNotation notation;
  HemisphereLetters& letters = notation.hemispheres;
  for (std::string* letter : {&letters.north, &letters.south, &letters.east, &letters.west}) {
    *letter = texts.find(*letter).value_or(*letter);
  }
  return notation;
}

}  // namespace wayfell
