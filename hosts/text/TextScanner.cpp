#include "hosts/text/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "hosts/text/Characters.h"

namespace wayfell {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

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
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
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

std::string_view TextScanner::word() { return rest().substr(0, rest_.find_first_of(kBlanks)); }

std::string inQuotes(std::string_view piece) {
  constexpr std::size_t kLongest = 40;
  std::string text = "\"";
  text += piece.substr(0, kLongest);
  std::replace(text.begin(), text.end(), '\0', ' ');  // which would end the message
  if (piece.size() > kLongest) text += "...";
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
