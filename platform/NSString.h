// Texts: formats in printf's notation, and numbers read back out of a text.
//
// Texts are UTF-8. A text that may be missing is a std::optional.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "platform/FormattedText.h"

namespace wayfell {

/// One argument of a format: a number, or a text that may be missing.
class FormatArgument {
 public:
  using MissingText = std::nullopt_t;

  // One argument is one number or one text: the conversions are what makes calls readable.
  template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
  FormatArgument(Number number) {
    if constexpr (std::is_floating_point_v<Number>) {
      value_ = static_cast<double>(number);
    } else {
      value_ = static_cast<std::int64_t>(number);
    }
  }
  FormatArgument(std::string_view text) : value_(Text(text)) {}
  FormatArgument(const std::string& text) : value_(Text(text)) {}
  FormatArgument(const FormattedText& text) : value_(Text(text)), formatted_(&text) {}
  FormatArgument(const char* text) : value_(Text(text)) {}
  template <class String>
  FormatArgument(const std::optional<String>& text)
      : value_(text ? Text(std::string_view(*text)) : Text()) {
    if constexpr (std::is_same_v<String, FormattedText>) formatted_ = text ? &*text : nullptr;
  }

  /// `%f` takes a real, `%d` an integer, `%@` a text; the other two are null.
  const double* real() const { return std::get_if<double>(&value_); }
  const std::int64_t* integer() const { return std::get_if<std::int64_t>(&value_); }
  const std::optional<std::string_view>* text() const { return std::get_if<Text>(&value_); }
  /// A text that knows what has printed it; else null.
  const FormattedText* formatted() const { return formatted_; }

 private:
  using Text = std::optional<std::string_view>;
  std::variant<double, std::int64_t, Text> value_;
  const FormattedText* formatted_ = nullptr;
};

/// Fills a format. Conversions: `%d`, `%f`, `%@` and `%%`,
/// with flags, width and precision as printf has them, and with positions ("%2$@").
/// - Reals are exactly rounded (ties of the binary value to even), `-0` keeps its sign,
///   not-a-number is "nan" whatever its sign, infinities are "inf" and "-inf"; the process's
///   locale never changes a digit.
/// - `%d` prints the argument's low 32 bits.
/// - `%@` of a missing text is "(null)".
/// - A conversion whose argument is missing or of another kind prints nothing.
std::string stringWithFormat(std::string_view format,
                             std::initializer_list<FormatArgument> arguments);

template <class... Arguments>
std::string stringWithFormat(std::string_view format, const Arguments&... arguments) {
  return stringWithFormat(format, {FormatArgument(arguments)...});
}

/// The same text, which knows what has printed it: the key, which has to outlive it, and whose
/// translation the format is.
FormattedText formattedText(std::string_view key, std::string_view format,
                            std::initializer_list<FormatArgument> arguments);

/// Likewise with a format that is its own key.
template <class... Arguments>
FormattedText formattedText(std::string_view format, const Arguments&... arguments) {
  return formattedText(format, format, {FormatArgument(arguments)...});
}

/// Whether a text can stand in for a format: it takes the same kinds of argument at the same
/// positions. Their order, and the words between, may differ.
bool formatsTakeSameArguments(std::string_view one, std::string_view other);

/// "%0.<decimals>f" of a number, by the rules of stringWithFormat.
std::string fixedText(double value, int decimals);

/// The shortest decimal text that reads back as the same number: "0.1", "1e+300", "3".
std::string shortestText(double value);

/// The number that a text begins with, after blanks: sign and digits, saturating; 0 without any.
std::int64_t integerValue(std::string_view text);
std::int32_t intValue(std::string_view text);

/// Likewise for a decimal number with fraction and exponent. "nan", "inf" and hexadecimal are 0.
double doubleValue(std::string_view text);

/// True when the text, after blanks, a sign and zeros, goes on with Y, T, y, t or a digit 1 to 9.
bool boolValue(std::string_view text);

}  // namespace wayfell
