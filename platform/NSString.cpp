#include "platform/NSString.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <locale>
#include <sstream>
#include <vector>

#include "platform/Numbers.h"

namespace wayfell {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view withoutLeadingBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

// --- Numbers to text -----------------------------------------------------------------------

enum class Notation { fixed, scientific };

#ifdef __cpp_lib_to_chars

std::string digits(double value, Notation notation, std::optional<int> decimals) {
  const auto format =
      notation == Notation::fixed ? std::chars_format::fixed : std::chars_format::scientific;
  // The longest integer part of a double has 309 digits.
  std::array<char, 350> buffer{};
  char* const end = buffer.data() + buffer.size();
  if (!decimals) return {buffer.data(), std::to_chars(buffer.data(), end, value, format).ptr};
  const auto result = std::to_chars(buffer.data(), end, value, format, *decimals);
  if (result.ec == std::errc()) return {buffer.data(), result.ptr};
  std::string large(buffer.size() + static_cast<std::size_t>(*decimals), '\0');
  large.resize(static_cast<std::size_t>(
      std::to_chars(large.data(), large.data() + large.size(), value, format, *decimals).ptr -
      large.data()));
  return large;
}

double parsed(const std::string& text) {
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Too small or too large: only a negative exponent or a leading 0 makes a number small.
  const bool small = text.find("e-") != std::string::npos || text.front() == '0';
  return small ? 0 : std::numeric_limits<double>::infinity();
}

#else  // a library whose to_chars knows no floating point: streams give the same digits, slowly

std::string digits(double value, Notation notation, std::optional<int> decimals) {
  for (int precision = decimals.value_or(0);; ++precision) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.setf(notation == Notation::fixed ? std::ios::fixed : std::ios::scientific,
                std::ios::floatfield);
    stream.precision(precision);
    stream << value;
    if (decimals) return stream.str();
    std::istringstream back(stream.str());
    back.imbue(std::locale::classic());
    double same = 0;
    back >> same;
    if (same == value) return stream.str();
  }
}

double parsed(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double value = 0;
  stream >> value;
  return stream.fail() && value != 0 ? std::numeric_limits<double>::infinity() : value;
}

#endif

// --- Formats -------------------------------------------------------------------------------

struct Conversion {
  std::size_t position = 0;  // of the argument, from 0
  bool leftAligned = false;
  bool zeroPadded = false;
  char positiveSign = '\0';  // '+', ' ' or none
  std::size_t width = 0;
  std::optional<int> precision;
  bool wide = false;  // of an integer: all 64 bits
  char kind = '\0';   // 'd', 'f' or '@'
};

// Reads a format piece by piece: `literal` is text to copy, then `conversion`, if any, follows.
class FormatReader {
 public:
  explicit FormatReader(std::string_view format) : rest_(format) {}

  bool next(std::string_view& literal, std::optional<Conversion>& conversion) {
    conversion.reset();
    if (rest_.empty()) return false;
    const std::size_t percent = rest_.find('%');
    if (percent != 0) {
      literal = rest_.substr(0, percent);
      rest_.remove_prefix(literal.size());
      return true;
    }
    literal = {};
    readConversion(literal, conversion);
    return true;
  }

 private:
  // Widths, precisions and positions beyond this make no sense and could exhaust memory.
  static constexpr int kLargestNumber = 400;

  void readConversion(std::string_view& literal, std::optional<Conversion>& result) {
    const std::string_view whole = rest_;
    rest_.remove_prefix(1);
    if (take('%')) {
      literal = "%";
      return;
    }
    Conversion& conversion = result.emplace();
    conversion.position = readPosition().value_or(nextPosition_);
    readFlags(conversion);
    conversion.width = static_cast<std::size_t>(readNumber().value_or(0));
    if (take('.')) conversion.precision = readNumber().value_or(0);
    while (take('l')) conversion.wide = true;
    if (take('d') || take('i')) {
      conversion.kind = 'd';
    } else if (take('f') || take('F')) {
      conversion.kind = 'f';
    } else if (take('@')) {
      conversion.kind = '@';
    } else {
      result.reset();  // no conversion after all: the sign stands for itself
      literal = whole.substr(0, 1);
      rest_ = whole.substr(1);
      return;
    }
    nextPosition_ = conversion.position + 1;
  }

  std::optional<std::size_t> readPosition() {
    const std::string_view before = rest_;
    const auto number = readNumber();
    if (number && *number > 0 && take('$')) return static_cast<std::size_t>(*number) - 1;
    rest_ = before;
    return std::nullopt;
  }

  void readFlags(Conversion& conversion) {
    while (true) {
      if (take('-')) {
        conversion.leftAligned = true;
      } else if (take('0')) {
        conversion.zeroPadded = true;
      } else if (take('+')) {
        conversion.positiveSign = '+';
      } else if (take(' ')) {
        if (conversion.positiveSign == '\0') conversion.positiveSign = ' ';
      } else {
        return;
      }
    }
  }

  std::optional<int> readNumber() {
    if (rest_.empty() || !isDigit(rest_.front())) return std::nullopt;
    int number = 0;
    while (!rest_.empty() && isDigit(rest_.front())) {
      number = std::min(number * 10 + (rest_.front() - '0'), kLargestNumber);
      rest_.remove_prefix(1);
    }
    return number;
  }

  bool take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::string_view rest_;
  std::size_t nextPosition_ = 0;
};

std::size_t codePoints(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

// Where an argument stands in the text, padding left aside.
struct Place {
  std::size_t begin;
  std::size_t end;
};

Place appendPadded(std::string& out, const Conversion& conversion, std::string_view text) {
  std::size_t padding = 0;
  if (conversion.width > 0) {
    const std::size_t length = codePoints(text);
    padding = conversion.width > length ? conversion.width - length : 0;
  }
  if (!conversion.leftAligned) out.append(padding, ' ');
  const std::size_t begin = out.size();
  out += text;
  if (conversion.leftAligned) out.append(padding, ' ');
  return {begin, begin + text.size()};
}

// `text` is a number as printed, a minus sign included.
Place appendNumber(std::string& out, const Conversion& conversion, std::string text, bool finite) {
  if (text.front() != '-' && conversion.positiveSign != '\0') {
    text.insert(text.begin(), conversion.positiveSign);
  }
  if (conversion.zeroPadded && !conversion.leftAligned && finite &&
      text.size() < conversion.width) {
    text.insert(isDigit(text.front()) ? 0 : 1, conversion.width - text.size(), '0');
  }
  return appendPadded(out, conversion, text);
}

Place appendConverted(std::string& out, const Conversion& conversion,
                      const FormatArgument& argument) {
  if (conversion.kind == 'f') {
    if (const double* real = argument.real()) {
      return appendNumber(out, conversion, fixedText(*real, conversion.precision.value_or(6)),
                          std::isfinite(*real));
    }
  } else if (conversion.kind == 'd') {
    if (const std::int64_t* integer = argument.integer()) {
      const std::int64_t shown = conversion.wide ? *integer : lowInt32(*integer);
      return appendNumber(out, conversion, std::to_string(shown), true);
    }
  } else if (const auto* text = argument.text()) {
    return appendPadded(out, conversion, text->value_or("(null)"));
  }
  return {out.size(), out.size()};
}

// Tells where each argument has come to stand.
template <class Tell>
void appendFormat(std::string& out, std::string_view format,
                  std::initializer_list<FormatArgument> arguments, Tell tell) {
  FormatReader reader(format);
  std::string_view literal;
  std::optional<Conversion> conversion;
  while (reader.next(literal, conversion)) {
    if (!conversion) {
      out += literal;
    } else if (const std::size_t position = conversion->position; position < arguments.size()) {
      tell(position, appendConverted(out, *conversion, arguments.begin()[position]));
    }
  }
}

// What each position of a format takes; '\0' where it takes nothing.
std::vector<char> argumentKinds(std::string_view format) {
  std::vector<char> kinds;
  FormatReader reader(format);
  std::string_view literal;
  std::optional<Conversion> conversion;
  while (reader.next(literal, conversion)) {
    if (!conversion) continue;
    if (kinds.size() <= conversion->position) kinds.resize(conversion->position + 1);
    kinds[conversion->position] = conversion->kind;
  }
  return kinds;
}

}  // namespace

std::string stringWithFormat(std::string_view format,
                             std::initializer_list<FormatArgument> arguments) {
  std::string out;
  appendFormat(out, format, arguments, [](std::size_t /*position*/, Place /*place*/) {});
  return out;
}

FormattedText formattedText(std::string_view key, std::string_view format,
                            std::initializer_list<FormatArgument> arguments) {
  FormattedText result;
  result.key_ = key;
  appendFormat(result.text_, format, arguments, [&](std::size_t position, Place place) {
    result.add(position, place.begin, place.end, arguments.begin()[position].formatted());
  });
  return result;
}

bool formatsTakeSameArguments(std::string_view one, std::string_view other) {
  return argumentKinds(one) == argumentKinds(other);
}

std::string fixedText(double value, int decimals) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  return digits(value, Notation::fixed, decimals);
}

std::string shortestText(double value) {
  if (!std::isfinite(value)) return fixedText(value, 0);
  const double magnitude = std::abs(value);
  const bool ordinary = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e17);
  return digits(value, ordinary ? Notation::fixed : Notation::scientific, std::nullopt);
}

std::int64_t integerValue(std::string_view text) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  text = withoutLeadingBlanks(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (negative || text.front() == '+')) text.remove_prefix(1);
  std::int64_t value = 0;  // kept negative: there is one more negative number than positive ones
  for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
    const std::int64_t digit = text.front() - '0';
    if (value < (kLeast + digit) / 10) return negative ? kLeast : kMost;
    value = value * 10 - digit;
  }
  if (negative) return value;
  return value == kLeast ? kMost : -value;
}

std::int32_t intValue(std::string_view text) {
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(integerValue(text), std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max()));
}

double doubleValue(std::string_view text) {
  text = withoutLeadingBlanks(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (negative || text.front() == '+')) text.remove_prefix(1);

  std::size_t end = 0;
  std::size_t digitCount = 0;
  const auto skipDigits = [&text](std::size_t from) {
    while (from < text.size() && isDigit(text[from])) ++from;
    return from;
  };
  end = skipDigits(0);
  digitCount = end;
  if (end < text.size() && text[end] == '.') {
    const std::size_t afterFraction = skipDigits(end + 1);
    digitCount += afterFraction - end - 1;
    end = afterFraction;
  }
  if (digitCount == 0) return 0;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const std::size_t sign = end + 1;
    const bool signedExponent = sign < text.size() && (text[sign] == '-' || text[sign] == '+');
    const std::size_t exponent = sign + (signedExponent ? 1 : 0);
    const std::size_t afterExponent = skipDigits(exponent);
    if (afterExponent > exponent) end = afterExponent;
  }
  std::string number(text.substr(0, end));
  std::replace(number.begin(), number.end(), 'E', 'e');
  const double magnitude = parsed(number);
  return negative ? -magnitude : magnitude;
}

bool boolValue(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  const std::size_t zeros = std::min(text.find_first_not_of('0'), text.size());
  text.remove_prefix(zeros);
  return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != std::string::npos;
}

}  // namespace wayfell
