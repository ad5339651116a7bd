// Reads what people type from left to right: numbers, letters and what stands between them. Blanks
// before each part are passed over, with them the blanks and marks of direction that copied texts
// have, and so is one comma where a separator may stand.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

class TextScanner {
 public:
  /// The text is not copied.
  explicit TextScanner(std::string_view text) : rest_(text) {}

  bool atEnd();
  /// Blanks, and at most one comma among them.
  void separator();

  /// A decimal number with an optional sign, fraction and exponent; finite.
  std::optional<double> number();
  /// Without sign and exponent, so that "5E" is 5 and a letter.
  std::optional<double> plainNumber();
  /// As many digits, or letters A to Z in either case, as follow; none is empty.
  std::string_view digits();
  std::string_view letters();
  /// Takes the token if it comes next.
  bool take(std::string_view token);

  /// What is left, and what is left up to the next blank, for messages.
  std::string_view rest();
  std::string_view word();

 private:
  void skipBlanks();
  std::string_view takeFirst(std::size_t count);

  std::string_view rest_;
};

/// A piece of the input in quotation marks, cut if it is long.
std::string inQuotes(std::string_view piece);

/// A to Z in capitals; all else stays.
std::string upperCased(std::string_view text);

}  // namespace wayfell
