#include "hosts/places/DegreesText.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <stdexcept>
#include <utility>

#include "hosts/places/PositionText.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

using Part = DegreesPart;
using Unit = DegreesUnit;

struct Axis {
  std::string_view name;
  double greatest;  // degrees
  char negative;
};
constexpr Axis kLatitude = {"latitude", kGreatestLatitude, 'S'};
constexpr Axis kLongitude = {"longitude", kGreatestLongitude, 'W'};

[[noreturn]] void refuse(const std::string& why) { throw std::invalid_argument(why); }

// Whether the second coordinate begins with a number that is not the first.
bool startsSecond(std::span<const Part> parts, std::size_t i) {
  const Part& part = parts[i];
  const Part& previous = parts[i - 1];
  const bool colonsEnd = previous.unit != Unit::colon &&
                         (part.unit == Unit::colon || (i > 1 && parts[i - 2].unit == Unit::colon));
  return part.isApart || part.before != '\0' || previous.after != '\0' || part.sign != '\0' ||
         part.unit == Unit::degree || colonsEnd;
}

// How many numbers the first coordinate has.
std::size_t countOfFirst(std::span<const Part> parts) {
  std::size_t count = 0;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (!startsSecond(parts, i)) continue;
    if (count != 0) refuseNotation("there are more than two coordinates");
    count = i;
  }
  if (count != 0) return count;
  if (parts.size() == 1) refuseNotation("a longitude is missing");
  if (parts.size() % 2 != 0) {
    refuseNotation(std::to_string(parts.size()) + " numbers are no latitude and longitude");
  }
  return parts.size() / 2;
}

char letterOf(std::span<const Part> parts) {
  const char before = parts.front().before;
  return before != '\0' ? before : parts.back().after;
}

void checkUnits(std::span<const Part> parts, const std::string& name) {
  constexpr const char* kUnits[] = {"degrees", "minutes", "seconds"};
  if (parts.size() > std::size(kUnits)) refuseNotation("a " + name + " of more than three numbers");
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Part& part = parts[i];
    if (part.unit != Unit::none && part.unit != Unit::colon && part.unit != static_cast<Unit>(i)) {
      refuseNotation(std::string("signs of ") + kUnits[static_cast<std::size_t>(part.unit)] +
                     " stand after the " + kUnits[i] + " of a " + name);
    }
    if (i + 1 < parts.size() && !part.isWhole) {
      refuseNotation("a " + name + " with a fraction of " + kUnits[i] + " and " + kUnits[i + 1]);
    }
    if (i > 0 && part.beginsWithPoint) {
      refuseNotation("the " + std::string(kUnits[i]) + " of a " + name + " begin with a point");
    }
    // The system's own seconds may read 60.00.
    if (i > 0 && part.value >= 60 && (part.value > 60 || part.isWhole)) {
      refuse("a " + name + " with " + shortestText(part.value) + ' ' + kUnits[i] +
             ", not below 60");
    }
  }
}

double degreesOf(std::span<const Part> parts, const Axis& axis) {
  const std::string name(axis.name);
  checkUnits(parts, name);
  const char letter = letterOf(parts);
  const char sign = parts.front().sign;
  if (letter != '\0' && sign != '\0') refuse("a " + name + " with both a sign and a letter");
  double degrees = parts[0].value;
  if (parts.size() > 1) {
    const double seconds = parts.size() > 2 ? parts[2].value : 0;
    degrees = ((degrees * 60 + parts[1].value) * 60 + seconds) / 3600;
  }
  if ((sign == '-' || letter == axis.negative) && degrees != 0) degrees = -degrees;
  checkDegrees(degrees, axis.greatest, name);
  return degrees;
}

bool isOfLatitude(char letter) { return letter == 'N' || letter == 'S'; }

// A forgotten number, or a blank in place of a point, is not to go unnoticed.
void checkCounts(std::span<const Part> first, std::span<const Part> second, bool isMixed) {
  const bool areMarked = first[0].unit != Unit::none && second[0].unit != Unit::none;
  if (first.size() != second.size() && !areMarked) {
    refuseNotation(isMixed ? "there are a decimal point and a decimal comma"
                           : "one coordinate has more numbers than the other");
  }
}

bool longitudeIsFirst(std::span<const Part> first, std::span<const Part> second) {
  const char firstLetter = letterOf(first);
  const char secondLetter = letterOf(second);
  if ((firstLetter == '\0') != (secondLetter == '\0')) {
    refuseNotation("one coordinate has a letter, the other has none");
  }
  if (firstLetter == '\0') return false;
  if (isOfLatitude(firstLetter) == isOfLatitude(secondLetter)) {
    refuseNotation(isOfLatitude(firstLetter) ? "there are two latitudes"
                                             : "there are two longitudes");
  }
  return !isOfLatitude(firstLetter);
}

}  // namespace

CLLocationCoordinate2D takeDegrees(TextScanner& scanner, const HemisphereLetters& letters) {
  const bool isMixed = scanner.rest().find('.') != std::string_view::npos &&
                       scanner.rest().find('.') != std::string_view::npos;
  const DegreesParts taken = takeDegreesParts(scanner, letters);
  const std::span<const Part> parts(taken.parts.data(), taken.count);
  if (parts.empty()) refuseNotation("a position is missing");
  const std::size_t count = countOfFirst(parts);
  auto latitude = parts.first(count);
  auto longitude = parts.subspan(count);
  checkCounts(latitude, longitude, isMixed);
  if (longitudeIsFirst(latitude, longitude)) std::swap(latitude, longitude);
  return {degreesOf(latitude, kLatitude), degreesOf(longitude, kLongitude)};
}

}  // namespace wayfell
