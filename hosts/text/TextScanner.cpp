#include "hosts/text/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "hosts/text/Characters.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

// How many bytes of a blank come first: of one of those above, of a no-break or narrow blank or of
// a mark of the direction of writing, which texts that are copied have in them.
std::size_t blankLength(std::string_view text) {
  if (text.empty()) return 0;
  const auto first = static_cast<unsigned char>(text.front());
  if (first > ' ' && first < 0x80) return 0;
  if (kBlanks.find(text.front()) != std::string_view::npos) return 1;
  if (text.starts_with("\u00A0")) return 2;
  const bool isWide = (text >= "\u2000" && text < "\u2010") ||
                      (text >= "\u202A" && text < "\u2030") ||
                      (text >= "\u2066" && text < "\u206A");
  return isWide ? 3 : 0;
}

template <class Predicate>
std::size_t countOf(std::string_view text, Predicate predicate) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), predicate);
  return static_cast<std::size_t>(end - text.begin());
}

struct Number {
  double value;
  std::size_t length;
};

// The notation keeps out hexadecimal; a word such as "nan" or "inf" is no number to people.
std::optional<Number> numberAt(std::string_view text, std::chars_format notation) {
  const std::string_view unsignedText = text.substr(text.starts_with('-') ? 1 : 0);
  if (unsignedText.empty() || !(isDigit(unsignedText.front()) || unsignedText.front() == '.')) {
    return std::nullopt;
  }
  double value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, notation);
  if (error != std::errc()) return std::nullopt;
  // "1.2.3" and "1-2" are no numbers, rather than two.
  const char next = end == text.data() + text.size() ? ' ' : *end;
  if (next == '.' || next == '-' || next == '+') return std::nullopt;
  return Number{value, static_cast<std::size_t>(end - text.data())};
}

}  // namespace

void TextScanner::skipBlanks() {
  while (const std::size_t length = blankLength(rest_)) rest_.remove_prefix(length);
}

std::string_view TextScanner::takeFirst(std::size_t count) {
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(taken.size());
  return taken;
}

bool TextScanner::atEnd() {
  skipBlanks();
  return rest_.empty();
}

void TextScanner::separator() {
  skipBlanks();
  if (rest_.starts_with(',')) takeFirst(1);
}

std::optional<double> TextScanner::number() {
  skipBlanks();
  const std::size_t plus = rest_.starts_with('+') && !rest_.starts_with("+-") ? 1 : 0;
  const auto found = numberAt(rest_.substr(plus), std::chars_format::general);
  if (!found) return std::nullopt;
  takeFirst(plus + found->length);
  return found->value;
}

std::optional<double> TextScanner::plainNumber() {
  skipBlanks();
  if (rest_.starts_with('-')) return std::nullopt;
  const auto found = numberAt(rest_, std::chars_format::fixed);
  if (!found) return std::nullopt;
  takeFirst(found->length);
  return found->value;
}

std::string_view TextScanner::digits() {
  skipBlanks();
  return takeFirst(countOf(rest_, isDigit));
}

std::string_view TextScanner::letters() {
  skipBlanks();
  return takeFirst(countOf(rest_, isLetter));
}

bool TextScanner::take(std::string_view token) {
  skipBlanks();
  if (!rest_.starts_with(token)) return false;
  takeFirst(token.size());
  return true;
}

std::string_view TextScanner::rest() {
  skipBlanks();
  return rest_;
}

std::string_view TextScanner::word() {
  std::size_t length = 0;
  const std::string_view text = rest();
  while (length < text.size() && blankLength(text.substr(length)) == 0) ++length;
  return text.substr(0, length);
}

std::string inQuotes(std::string_view piece) {
  constexpr int kLongest = 40;  // columns
  std::string text = "\"";
  const std::string_view shown = cut(piece, kLongest);
  text += shown;
  std::replace(text.begin(), text.end(), '\0', ' ');  // which would end the message
  if (shown.size() < piece.size()) text += "...";
  return text + '"';
}

std::string upperCased(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return upper;
}

}  // namespace wayfell
