#include "hosts/places/DegreesParts.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "hosts/text/Characters.h"

namespace wayfell {
namespace {

using Part = DegreesPart;
using Unit = DegreesUnit;

std::size_t countOfNumbers(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isDigit(text[i]) && (i == 0 || !isDigit(text[i - 1]))) ++count;
  }
  return count;
}

// Whether a comma between two digits belongs to a number; see DegreesText.h.
bool hasDecimalCommas(std::string_view text) {
  if (text.find(',') == std::string_view::npos || text.find('.') != std::string_view::npos) {
    return false;
  }
  std::size_t between = 0;  // two digits
  std::size_t others = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != ',' && text[i] != ';') continue;
    const bool inNumber = text[i] == ',' && i > 0 && isDigit(text[i - 1]) && i + 1 < text.size() &&
                          isDigit(text[i + 1]);
    ++(inNumber ? between : others);
  }
  return between > 1 || (between == 1 && (others > 0 || countOfNumbers(text) % 2 != 0));
}

constexpr std::pair<std::string_view, char> kSigns[] = {{"-", '-'}, {"−", '-'}, {"+", '+'}};

struct Numeral {
  double value = 0;
  std::size_t length = 0;
  bool isWhole = true;
};

std::size_t digitsAt(std::string_view text, std::size_t start) {
  std::size_t end = start;
  while (end < text.size() && isDigit(text[end])) ++end;
  return end - start;
}

// An exponent has a sign, so that the E of "7E46" is a letter. "1.2.3" and "46-47" are no numbers,
// rather than two.
std::optional<Numeral> spanOfNumeral(std::string_view text, char decimalMark) {
  const auto at = [text](std::size_t i) { return i < text.size() ? text[i] : ' '; };
  Numeral numeral;
  std::size_t& end = numeral.length;
  end = digitsAt(text, 0);
  if (at(end) == decimalMark && (decimalMark == '.' || isDigit(at(end + 1)))) {
    const std::size_t decimals = digitsAt(text, end + 1);
    if (end + decimals == 0) return std::nullopt;
    numeral.isWhole = false;
    end += 1 + decimals;
  }
  if (end == 0) return std::nullopt;
  if ((at(end) == 'e' || at(end) == 'E') && (at(end + 1) == '-' || at(end + 1) == '+') &&
      isDigit(at(end + 2))) {
    numeral.isWhole = false;
    end += 2 + digitsAt(text, end + 2);
  }
  const char next = at(end);
  if (next == '.' || next == '-' || next == '+') return std::nullopt;
  if (next == decimalMark && isDigit(at(end + 1))) return std::nullopt;
  return numeral;
}

std::optional<Numeral> numeralAt(std::string_view text, char decimalMark) {
  auto numeral = spanOfNumeral(text, decimalMark);
  if (!numeral) return std::nullopt;
  std::string pointed;
  std::string_view digits = text.substr(0, numeral->length);
  if (decimalMark == ',') {
    pointed = digits;
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    digits = pointed;
  }
  const char* const end = digits.data() + digits.size();
  if (std::from_chars(digits.data(), end, numeral->value).ec != std::errc()) return std::nullopt;
  return numeral;
}

struct UnitSign {
  std::string_view text;
  Unit unit;
};
// Where two begin alike, the longer is first.
constexpr UnitSign kUnitSigns[] = {
    {"°", Unit::degree},  {"º", Unit::degree},   {"˚", Unit::degree},  {"''", Unit::second},
    {"′′", Unit::second}, {"’’", Unit::second},  {"\"", Unit::second}, {"″", Unit::second},
    {"”", Unit::second},  {"'", Unit::minute},   {"′", Unit::minute},  {"’", Unit::minute},
    {":", Unit::colon},   {"deg", Unit::degree}, {"d", Unit::degree},  {"min", Unit::minute},
    {"m", Unit::minute},  {"sec", Unit::second}, {"s", Unit::second},
};

// Takes a text apart into its numbers.
class PartScanner {
 public:
  PartScanner(TextScanner& scanner, const HemisphereLetters& letters)
      : scanner_(scanner),
        letters_(letters),
        decimalMark_(hasDecimalCommas(scanner.rest()) ? ',' : '.') {}

  DegreesParts takeAll() {
    while (!scanner_.atEnd()) {
      if (takeNumber() || takeSeparator() || takeUnit() || takeLetter()) continue;
      refuseNotation(inQuotes(scanner_.word()) + " is no part of a position");
    }
    if (isApart_) refuseNotation("nothing stands after the last comma");
    if (letter_ != '\0') refuseNotation(std::string("no number stands after ") + letter_);
    return parts_;
  }

 private:
  bool takeNumber();
  bool takeSeparator();
  bool takeUnit();
  bool takeLetter();
  char directionNext(std::size_t& length);

  Part& fromLast(std::size_t i) { return parts_.parts[parts_.count - i]; }
  Part& last() { return fromLast(1); }
  bool mayHaveUnit() {
    return parts_.count > 0 && last().unit == Unit::none && last().after == '\0' &&
           letter_ == '\0' && !isApart_;
  }

  TextScanner& scanner_;
  const HemisphereLetters& letters_;
  char decimalMark_;
  DegreesParts parts_;
  // What belongs to the next number.
  char letter_ = '\0';
  bool isApart_ = false;
  bool lettersStandFirst_ = false;
};

bool PartScanner::takeNumber() {
  const std::string_view word = scanner_.word();
  Part part = {.before = letter_, .isApart = isApart_};
  std::string_view digits = word;
  for (const auto& [text, sign] : kSigns) {
    if (!word.starts_with(text)) continue;
    part.sign = sign;
    digits.remove_prefix(text.size());
  }
  if (part.sign == '\0' && !isDigit(word.front()) && word.front() != '.') return false;
  const auto numeral = numeralAt(digits, decimalMark_);
  if (!numeral) refuseNotation(inQuotes(word) + " is no number");
  if (parts_.count == DegreesParts::kMost)
    refuseNotation(inQuotes(scanner_.rest()) + " is too much");
  part.value = numeral->value;
  part.isWhole = numeral->isWhole;
  part.beginsWithPoint = digits.front() == '.';
  parts_.parts[parts_.count++] = part;
  scanner_.take(word.substr(0, word.size() - digits.size() + numeral->length));
  letter_ = '\0';
  isApart_ = false;
  return true;
}

bool PartScanner::takeSeparator() {
  if (!scanner_.take(",") && !scanner_.take(";")) return false;
  if (parts_.count == 0 || isApart_ || letter_ != '\0')
    refuseNotation("a comma stands where none can");
  isApart_ = true;
  return true;
}

bool PartScanner::takeUnit() {
  if (!mayHaveUnit()) return false;
  const bool isAfterSpelledMinutes =
      parts_.count > 1 && fromLast(2).unit == Unit::minute && fromLast(2).isSpelled;
  for (const UnitSign& sign : kUnitSigns) {
    if (sign.text == "s" && !isAfterSpelledMinutes) continue;
    if (!scanner_.take(sign.text)) continue;
    last().unit = sign.unit;
    last().isSpelled = isLetter(sign.text.front());
    return true;
  }
  return false;
}

// Which direction the next letters stand for, if any.
char PartScanner::directionNext(std::size_t& length) {
  const std::pair<char, std::string_view> names[] = {
      {'N', "N"},
      {'S', "S"},
      {'E', "E"},
      {'W', "W"},
      {'N', letters_.north},
      {'S', letters_.south},
      {'E', letters_.east},
      {'W', letters_.west},
  };
  const std::string_view rest = scanner_.rest();
  char found = '\0';
  for (const auto& [direction, name] : names) {
    if (name.empty() || upperCased(rest.substr(0, name.size())) != upperCased(name)) continue;
    if (found != '\0' && found != direction) {
      refuseNotation(inQuotes(name) + " may be either of two directions");
    }
    found = direction;
    length = std::max(length, name.size());
  }
  return found;
}

bool PartScanner::takeLetter() {
  std::size_t length = 0;
  const char direction = directionNext(length);
  const std::string_view rest = scanner_.rest();
  if (direction == '\0') {
    TextScanner ahead = scanner_;
    if (upperCased(ahead.letters()) != "O") return false;
    refuseNotation("O is the east in German and the west in French");
  }
  if (rest.size() > length && isLetter(rest[length])) return false;
  scanner_.take(rest.substr(0, length));
  if (parts_.count == 0 && letter_ == '\0') lettersStandFirst_ = true;
  char& letter = lettersStandFirst_ ? letter_ : last().after;
  if (letter != '\0' || (isApart_ && !lettersStandFirst_)) {
    refuseNotation(std::string("it is not clear what ") + direction + " belongs to");
  }
  letter = direction;
  return true;
}

}  // namespace

void refuseNotation(const std::string& why) {
  throw std::invalid_argument(
      why + "; write 46.98 7.94, 46 58.8 N 7 56.4 E or 32T MT 19383 03487, for example");
}

DegreesParts takeDegreesParts(TextScanner& scanner, const HemisphereLetters& letters) {
  return PartScanner(scanner, letters).takeAll();
}

}  // namespace wayfell
