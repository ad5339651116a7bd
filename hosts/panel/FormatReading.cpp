#include "hosts/panel/FormatReading.h"

#include <algorithm>

namespace wayfell {
namespace {

constexpr std::string_view kConversions = "df@";

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789.-") == std::string_view::npos;
}

std::string withoutLeadingZeros(std::string_view number) {
  while (number.size() > 1 && number[0] == '0' && number[1] != '.') number.remove_prefix(1);
  return std::string(number);
}

// Reads a text of a literal, a conversion, a literal ... from the front. Where a conversion could
// end at several places, the last that lets the rest be read is taken.
bool read(std::string_view text, std::string_view format, std::vector<std::string>& taken) {
  const std::size_t conversion = format.find('%');
  const std::string_view literal = format.substr(0, conversion);
  if (!text.starts_with(literal)) return false;
  text.remove_prefix(literal.size());
  if (conversion == std::string_view::npos) return text.empty();

  const std::size_t kindAt = format.find_first_of(kConversions, conversion);
  if (kindAt == std::string_view::npos) return false;
  const bool isText = format[kindAt] == '@';
  const std::string_view rest = format.substr(kindAt + 1);
  for (std::size_t size = text.size(); size > 0; --size) {
    const std::string_view value = text.substr(0, size);
    if (!isText && !isNumber(value)) continue;
    taken.push_back(isText ? std::string(value) : withoutLeadingZeros(value));
    if (read(text.substr(size), rest, taken)) return true;
    taken.pop_back();
  }
  return false;
}

}  // namespace

std::optional<std::vector<std::string>> readByFormat(std::string_view text,
                                                     std::string_view format) {
  std::vector<std::string> taken;
  if (!read(text, format, taken)) return std::nullopt;
  return taken;
}

}  // namespace wayfell
