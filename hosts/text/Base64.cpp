#include "hosts/text/Base64.h"

#include <cstddef>
#include <cstdint>

namespace wayfell {
namespace {

constexpr std::string_view kLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string base64Of(const PropertyValue::Data& data) {
  std::string text;
  std::uint32_t bits = 0;
  unsigned count = 0;  // of bits not written yet; what is above them is done
  for (const std::uint8_t byte : data) {
    bits = bits << 8U | byte;
    for (count += 8; count >= 6; count -= 6) text += kLetters[bits >> (count - 6) & 0x3FU];
  }
  if (count > 0) text += kLetters[bits << (6 - count) & 0x3FU];
  while (text.size() % 4 != 0) text += '=';
  return text;
}

std::optional<PropertyValue::Data> dataOfBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  for (int i = 0; i < 2 && text.ends_with('='); ++i) text.remove_suffix(1);
  PropertyValue::Data data;
  std::uint32_t bits = 0;
  unsigned count = 0;
  for (const char letter : text) {
    const std::size_t value = kLetters.find(letter);
    if (value == std::string_view::npos) return std::nullopt;
    bits = bits << 6U | static_cast<std::uint32_t>(value);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    data.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return data;
}

}  // namespace wayfell
