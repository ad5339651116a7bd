#include "hosts/places/PositionReader.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "hosts/places/GeoUri.h"
#include "hosts/places/PositionText.h"
#include "hosts/text/Characters.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

// A zone and one letter begin degrees, too: "33 N 16 E". But a number of degrees is never as large
// as an easting.
bool isUtmAfter(std::string_view letter, TextScanner& scanner) {
  constexpr double kMostDegrees = 180;
  constexpr std::string_view kLettersOfDegrees = "NSEWOD";
  TextScanner ahead = scanner;
  const auto number = ahead.plainNumber();
  return number &&
         (*number > kMostDegrees || kLettersOfDegrees.find(letter) == std::string_view::npos);
}

// Which reference a text begins as; `any` if it is none.
PositionForm referenceForm(TextScanner scanner) {
  const std::size_t digits = scanner.digits().size();
  if (digits == 0 || digits > 2) return PositionForm::any;
  std::string letters = upperCased(scanner.letters());
  if (letters == "NORTH" || letters == "SOUTH") return PositionForm::utm;
  if (letters.size() == 1) {
    if (isUtmAfter(letters, scanner)) return PositionForm::utm;
    letters += upperCased(scanner.letters());
  }
  if (letters.size() != 3) return PositionForm::any;
  const std::string_view rest = scanner.rest();
  const bool isDegrees = letters == "DEG" && std::any_of(rest.begin(), rest.end(), isLetter);
  return isDegrees ? PositionForm::any : PositionForm::mgrs;
}

CLLocationCoordinate2D takeGeoUri(TextScanner& scanner) {
  const std::string_view uri = scanner.word();
  scanner.take(uri);
  return positionOfGeoUri(uri);
}

CLLocationCoordinate2D takePosition(TextScanner& scanner, const PositionNotation& notation) {
  if (isGeoUri(scanner.rest()) && notation.form == PositionForm::any) return takeGeoUri(scanner);
  const PositionForm form =
      notation.form == PositionForm::any ? referenceForm(scanner) : notation.form;
  if (form == PositionForm::mgrs) return positionOf(takeMgrsReference(scanner));
  if (form == PositionForm::utm) {
    return positionOf(takeUtmReference(scanner, notation.utmLetters));
  }
  return takeDegrees(scanner, notation.hemispheres);
}

// Lines that `wayfell convert` prints in all formats begin with one.
void passLabel(TextScanner& scanner) {
  const std::string_view word = scanner.word();
  if (std::find(kPositionFormats.begin(), kPositionFormats.end(), word) != kPositionFormats.end()) {
    scanner.take(word);
  }
}

// Whole degrees, or degrees with a decimal comma and no longitude: "46,98".
bool mayBeOneNumber(TextScanner scanner) {
  const std::string_view word = scanner.word();
  if (word != scanner.rest()) return false;
  if (!scanner.take("-")) scanner.take("+");
  return !scanner.digits().empty() && scanner.take(",") && !scanner.digits().empty() &&
         scanner.atEnd();
}

}  // namespace

CLLocationCoordinate2D readPosition(std::string_view text, const PositionNotation& notation) {
  TextScanner scanner(text);
  if (mayBeOneNumber(scanner)) {
    throw std::invalid_argument(
        "a comma between whole numbers may be decimal or not; write a point "
        "or a blank for it");
  }
  passLabel(scanner);
  const CLLocationCoordinate2D position = takePosition(scanner, notation);
  if (!scanner.atEnd()) throw std::invalid_argument(inQuotes(scanner.rest()) + " is too much");
  return position;
}

}  // namespace wayfell
