#include "hosts/places/ReferenceText.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateLookup.h"
#include "hosts/places/PositionText.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr std::string_view kBands = "ACDEFGHJKLMNPQRSTUVWXZ";
constexpr std::string_view kRows = "ABCDEFGHJKLMNPQRSTUV";
// Columns of a zone, by the zone modulo 3.
constexpr std::array<std::string_view, 3> kColumns = {"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};

[[noreturn]] void refuse(const std::string& why) { throw std::invalid_argument(why); }

bool isOneOf(std::string_view letters, char letter) {
  return letters.find(letter) != std::string_view::npos;
}

// The 61st is the one in which the system puts a longitude of exactly 180 degrees.
std::int32_t takeZone(TextScanner& scanner) {
  if (scanner.atEnd()) refuse("a zone is missing");
  const std::string_view word = scanner.word();
  const std::string_view digits = scanner.digits();
  if (digits.empty()) refuse(inQuotes(word) + " does not begin with a zone");
  const std::int32_t zone = intValue(digits);
  if (zone < 1 || zone > 61) refuse("zone " + std::string(digits) + " is not one of 1 to 60");
  return zone;
}

void checkBand(char letter) {
  if (!isOneOf(kBands, letter)) refuse(std::string("there is no latitude band ") + letter);
}

void takeHemisphereOrBand(TextScanner& scanner, UtmLetters meaning, UtmReference& reference) {
  const std::string_view word = scanner.word();
  const std::string letters = upperCased(scanner.letters());
  const bool isHemisphere = meaning == UtmLetters::hemispheres;
  if (letters == "NORTH" || letters == "SOUTH" ||
      (isHemisphere && (letters == "N" || letters == "S"))) {
    reference.southern = letters.front() == 'S';
    return;
  }
  if (letters.size() != 1) {
    refuse(word.empty() ? "a hemisphere or a band is missing after the zone"
                        : inQuotes(word) + " is neither a hemisphere nor a band");
  }
  reference.band = letters.front();
  checkBand(*reference.band);
  reference.southern = CoordinateLookup::findLatDegrees(letters) < 0;
}

// "mE", "m E", "E" or "m" after a number; the same with N.
void takeUnit(TextScanner& scanner, char direction, const std::string& name) {
  std::string unit;
  for (std::string_view more = scanner.letters(); !more.empty(); more = scanner.letters()) {
    unit += upperCased(more);
  }
  const std::string letter(1, direction);
  if (!unit.empty() && unit != "M" && unit != letter && unit != "M" + letter) {
    refuse(inQuotes(unit) + " after the " + name);
  }
}

double takeMetres(TextScanner& scanner, const std::string& name, char direction, double largest) {
  if (scanner.atEnd()) refuse("the " + name + " is missing");
  const std::string_view word = scanner.word();
  const auto metres = scanner.plainNumber();
  if (!metres) refuse(inQuotes(word) + " is no " + name);
  takeUnit(scanner, direction, name);
  if (*metres > largest) {
    refuse(name + ' ' + shortestText(*metres) + " is beyond " + shortestText(largest));
  }
  return *metres;
}

double metresOf(std::string_view digits) {
  constexpr std::size_t kFull = 5;
  return doubleValue(digits) * std::pow(10.0, static_cast<double>(kFull - digits.size()));
}

void takeSquareMetres(TextScanner& scanner, MgrsReference& reference) {
  constexpr std::size_t kMostDigits = 5;
  std::string_view easting = scanner.digits();
  if (easting.empty()) refuse("the digits after the square are missing");
  scanner.separator();
  std::string_view northing = scanner.digits();
  if (northing.empty()) {  // the first group is both
    if (easting.size() % 2 != 0) refuse(inQuotes(easting) + " has an odd number of digits");
    northing = easting.substr(easting.size() / 2);
    easting = easting.substr(0, easting.size() / 2);
  }
  if (easting.size() != northing.size()) {
    refuse(inQuotes(easting) + " and " + inQuotes(northing) + " differ in their number of digits");
  }
  if (easting.size() > kMostDigits) refuse("more than 10 digits");
  reference.easting = metresOf(easting);
  reference.northing = metresOf(northing);
}

void checkBandOf(const CLLocationCoordinate2D& position, char band, const std::string& what) {
  constexpr double kSlack = 0.05;  // degrees: more than any datum's shift
  const double south = CoordinateLookup::findLatDegrees(std::string(1, band));
  const double height = band == 'C' || band == 'X' ? 12 : band == 'A' || band == 'Z' ? 6 : 8;
  if (!(position.latitude > south - kSlack && position.latitude < south + height + kSlack)) {
    refuse(what + " is not in band " + band + " there");
  }
}

// A shift from the datum of the reference may lead just beyond 180 degrees.
CLLocationCoordinate2D withinGlobe(CLLocationCoordinate2D position) {
  if (position.longitude > 180) position.longitude -= 360;
  if (position.longitude < -180) position.longitude += 360;
  if (!isPosition(position)) refuse("there is no such place");
  return position;
}

}  // namespace

UtmReference takeUtmReference(TextScanner& scanner, UtmLetters letters) {
  UtmReference reference;
  reference.zone = takeZone(scanner);
  takeHemisphereOrBand(scanner, letters, reference);
  reference.easting = takeMetres(scanner, "easting", 'E', 1000000);
  scanner.separator();
  reference.northing = takeMetres(scanner, "northing", 'N', 10000000);
  return reference;
}

MgrsReference takeMgrsReference(TextScanner& scanner) {
  MgrsReference reference;
  reference.zone = takeZone(scanner);
  // In one word or in two.
  std::string& letters = reference.letters;
  letters = upperCased(scanner.letters());
  if (letters.size() == 1) letters += upperCased(scanner.letters());
  if (letters.size() != 3) refuse("after the zone come a band letter and two letters of a square");
  checkBand(letters[0]);
  const std::string_view columns = kColumns[static_cast<std::size_t>(reference.zone % 3)];
  if (!isOneOf(columns, letters[1])) {
    refuse(std::string("there is no column ") + letters[1] + " in zone " +
           std::to_string(reference.zone) + ", only " + columns.front() + " to " + columns.back());
  }
  if (!isOneOf(kRows, letters[2])) refuse(std::string("there is no row ") + letters[2]);
  takeSquareMetres(scanner, reference);
  return reference;
}

CLLocationCoordinate2D positionOf(const UtmReference& reference) {
  const auto position = ConvertCoordinates::convertToDecimalWithZoneHemisphereAndEastingAndNorthing(
      reference.zone, reference.southern ? "south" : "north", reference.easting,
      reference.northing);
  if (reference.band) {
    checkBandOf(position, *reference.band, "northing " + shortestText(reference.northing));
  }
  return withinGlobe(position);
}

CLLocationCoordinate2D positionOf(const MgrsReference& reference) {
  const auto position =
      ConvertCoordinates::convertMGRStoDecimalWithZoneAndZoneLetterAndEastingAndNorthing(
          reference.zone, reference.letters, reference.easting, reference.northing);
  checkBandOf(
      position, reference.letters.front(),
      "square " + reference.letters.substr(1) + " of zone " + std::to_string(reference.zone));
  return withinGlobe(position);
}

}  // namespace wayfell
